// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

#include <QCoreApplication>

/** "Dummy task": sleeps 5 s on a worker, then succeeds or fails as asked. For trying the observer.
 */
class OVTCOMMON_EXPORT DummyTask : public ElementTask
{
    Q_DECLARE_TR_FUNCTIONS(DummyTask)

public:
    /** @p element is not used and may be null. */
    DummyTask(Element *element, bool succeed);
    ~DummyTask() override;

    /** Sleeps 5 s; fails with four lines "ERROR!!!" unless constructed to succeed. */
    void run() override;
    /** Does nothing. */
    void afterRun() override;
};
