// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/controlservicetask.h"

#include <QProcess>
#include <QRegularExpression>

ControlServiceTask::ControlServiceTask(Element *element)
    : ElementTask(element, nullptr)
{ }

void ControlServiceTask::run()
{
    QString program = _program;
    QStringList arguments = _arguments;
    if (!_user.isEmpty()) {
        arguments = QStringList {QStringLiteral("-u"), _user, _program} + _arguments;
        program = QStringLiteral("runuser");
    }
    if (QProcess::startDetached(program, arguments)) {
        _taskDescription.setStatus(TaskDescription::Success);
    } else {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(tr("Failed to execute command \"%1 %2\"")
                                        .arg(program, arguments.join(QLatin1Char(' '))));
    }
    AbstractTask::run();
}

bool ControlServiceTask::existPackage(const QString &name)
{
    QProcess process;
    process.start(QStringLiteral("dpkg-query"),
                  {QStringLiteral("--show"),
                   QStringLiteral("--showformat=${db:Status-Abbrev}${binary:Package}\n")},
                  QIODevice::ReadOnly);
    if (!process.waitForFinished(30000) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        return false;
    const QRegularExpression installed(QStringLiteral("ii\\s%1").arg(name));
    const QStringList lines = QString::fromLocal8Bit(process.readAllStandardOutput())
                                  .split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (installed.match(line).hasMatch())
            return true;
    }
    return false;
}
