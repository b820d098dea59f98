// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

/**
 * Creates something inside a container element. A plug-in derives from it and does the work
 * in run(); afterRun() then either has the container re-read its children, selecting the new
 * child by the name in this task's data (paranoid module), or marks the create form saved.
 */
class OVTCOMMON_EXPORT CreateTask : public ElementTask
{
public:
    /** @p element is the container; @p data (owned) names and describes the new child. */
    CreateTask(Element *element, ElementData *data);

    /**
     * Paranoid module: performs ReadContentOperation on the container when offered, with no
     * data after a failure and else with a new record carrying only the new name. Otherwise,
     * unless the task failed, calls setUnchanged() on the container's ViewEditElementWidget in
     * CreateRole.
     */
    void afterRun() override;
};
