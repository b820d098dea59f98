// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

#include <QCoreApplication>
#include <QStringList>

/**
 * Runs a service program with an action word ("status", "start", "stop", "restart",
 * "reload") on a worker thread and waits for it. The deriving class sets the program and the
 * arguments.
 *
 * The command line is never given to a shell: program and arguments reach the program as they
 * are.
 */
class OVTCOMMON_EXPORT ServiceTask : public ElementTask
{
    Q_DECLARE_TR_FUNCTIONS(ServiceTask)

public:
    /** @p data (owned) may be null; a ServiceLightElementData receives the service's state. */
    explicit ServiceTask(Element *element, ElementData *data = nullptr);

    /**
     * Starts the program with the command word before (commandFirst, the default) or after the
     * arguments, waits up to 30000 ms for it to start and then without bound for it to end.
     * With a ServiceLightElementData as data the exit code is the answer: running exactly when
     * it is 0, and the task succeeds either way. Otherwise exit code 0 succeeds and any other
     * fails with the code and the trimmed standard error in the message.
     */
    void run() override;

protected:
    QString _program;
    QString _command;
    QStringList _arguments;
    bool _commandFirst;
};
