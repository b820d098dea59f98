// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

#include <QCoreApplication>

/**
 * "Stoppable dummy task": up to ten passes of 5 s on a worker; the user may stop it (flag bit
 * 0), and it notices at the start of the next pass. For trying the observer's stop action.
 */
class OVTCOMMON_EXPORT StoppableDummyTask : public ElementTask
{
    Q_DECLARE_TR_FUNCTIONS(StoppableDummyTask)

public:
    /** @p element is not used and may be null. */
    explicit StoppableDummyTask(Element *element);

    /** Fails with "Terminate by user" once asked to stop; succeeds after ten passes. */
    void run() override;
    /** Does nothing. */
    void afterRun() override;
};
