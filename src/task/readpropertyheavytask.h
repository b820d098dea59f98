// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

/**
 * Reads the full properties of an element for its form. A plug-in derives from it and leaves
 * what it read in the task's data.
 */
class OVTCOMMON_EXPORT ReadPropertyHeavyTask : public ElementTask
{
public:
    explicit ReadPropertyHeavyTask(Element *element);

    /**
     * Unless the task failed, hands the element and the data to the element's
     * ViewEditElementWidget in ViewEditRole (afterSuccessfulRead()); the data stays the task's.
     */
    void afterRun() override;
};
