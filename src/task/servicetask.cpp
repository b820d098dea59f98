// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/servicetask.h"

#include "element/servicelightelementdata.h"

#include <QProcess>

ServiceTask::ServiceTask(Element *element, ElementData *data)
    : ElementTask(element, data)
    , _commandFirst(true)
{ }

void ServiceTask::run()
{
    const QStringList arguments
        = _commandFirst ? QStringList(_command) + _arguments : _arguments + QStringList(_command);
    const QString commandLine = arguments.join(QLatin1Char(' '));
    QProcess process;
    process.start(_program, arguments, QIODevice::ReadOnly);
    if (!process.waitForStarted(30000)) {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(tr("Process: \"%1 %2\". Error: %3.\n\"Not started\"")
                                        .arg(_program, commandLine, process.errorString()));
        AbstractTask::run();
        return;
    }
    if (!process.waitForFinished(-1) || process.exitStatus() != QProcess::NormalExit) {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(tr("Process: \"%1 %2\". Error: %3.\n\"Not finished\"")
                                        .arg(_program, commandLine, process.errorString()));
        AbstractTask::run();
        return;
    }
    const int exitCode = process.exitCode();
    if (auto *light = dynamic_cast<ServiceLightElementData *>(_elementData)) {
        // A status query answers through its exit code; any answer is a success.
        light->setState(exitCode == 0);
        _taskDescription.setStatus(TaskDescription::Success);
    } else if (exitCode == 0) {
        _taskDescription.setStatus(TaskDescription::Success);
    } else {
        const QString error = QString::fromLocal8Bit(process.readAllStandardError()).trimmed();
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(
            tr("Process: \"%1 %2\". Exit code: %3.\n\"%4\"")
                .arg(_program, commandLine, QString::number(exitCode), error));
    }
    AbstractTask::run();
}
