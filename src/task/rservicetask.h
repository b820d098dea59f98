// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/servicetask.h"

/** Base of restart and reload: actions after which the state is only known by asking again. */
class OVTCOMMON_EXPORT RServiceTask : public ServiceTask
{
public:
    explicit RServiceTask(Element *element);

    /**
     * In a paranoid module, or after a failure (which leaves the service in an unknown state),
     * performs ReadOperation (no data) when the element offers it. A success in a module that
     * is not paranoid changes nothing.
     */
    void afterRun() override;
};
