// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/servicetask.h"

/**
 * Asks a service program for "status" and shows the answer on the element: the exit code 0
 * means running, any other code stopped.
 */
class OVTCOMMON_EXPORT ReadPropertyLightServiceTask : public ServiceTask
{
public:
    /** The task's data is a new ServiceLightElementData that receives the answer. */
    explicit ReadPropertyLightServiceTask(Element *element);

    /**
     * Unless the task failed, and when the element's own data is a ServiceLightElementData
     * too: copies the answer into it and emits nodeDataChanged on the element.
     */
    void afterRun() override;
};
