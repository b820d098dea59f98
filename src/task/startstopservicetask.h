// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/servicetask.h"

/** Starts or stops a service, then shows the new state on its element. */
class OVTCOMMON_EXPORT StartStopServiceTask : public ServiceTask
{
public:
    /** @p targetState is true for a start, false for a stop. */
    StartStopServiceTask(Element *element, bool targetState);

    /**
     * Paranoid module: performs ReadOperation (no data) when offered, nothing else. Otherwise,
     * unless the task failed, writes the target state into the element's data (through
     * ServiceLightElementData::setState() when the record is one and has no "state" property,
     * else as the bool property "state") and emits nodeDataChanged on the element.
     */
    void afterRun() override;

protected:
    bool _targetState;
};
