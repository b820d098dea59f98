// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

/**
 * Deletes an element from the system. A plug-in derives from it and does it in run(); in a
 * module that is not paranoid, afterRun() then takes the element out of its tree and deletes
 * it.
 */
class OVTCOMMON_EXPORT DeleteTask : public ElementTask
{
public:
    explicit DeleteTask(Element *element);

    /**
     * Paranoid module: only makes the parent current (its own re-read brings the change).
     * Otherwise, unless the task failed: makes the parent current, removes the element from
     * it, deletes the element and sets element() to null. A failed delete changes nothing.
     */
    void afterRun() override;
};
