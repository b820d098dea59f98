// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/process.h"

#include "system/appexception.h"

namespace {

constexpr int processTimeoutMs = 30000;

} // namespace

Process::Process(QObject *parent)
    : QProcess(parent)
{ }

Process &Process::simpleStart(const QString &program, const QStringList &arguments,
                              bool checkExitCode)
{
    start(program, arguments, QIODevice::ReadOnly);
    // The child's input is an open pipe nobody writes to: a child that reads it would wait
    // until the time-out. Closed, it reads end of file at once.
    closeWriteChannel();

    QString command = program;
    if (!arguments.isEmpty())
        command += QLatin1Char(' ') + arguments.join(QLatin1Char(' '));

    // A program that never started also ends up here: waitForFinished() fails at once, and
    // callers have always been shown one message for both cases.
    if (!waitForFinished(processTimeoutMs) || exitStatus() != QProcess::NormalExit)
        throw AppException(tr("Process '%1' not finished").arg(command));

    if (checkExitCode && exitCode() != 0) {
        QString message = tr("Process '%1' execute with error code '%2'")
                              .arg(command, QString::number(exitCode()));
        const QByteArray errorBytes = readAllStandardError();
        // The QByteArray overload would stop at the first NUL byte.
        const QString errorText = QString::fromLocal8Bit(errorBytes.constData(), errorBytes.size());
        if (!errorText.isEmpty())
            message += QStringLiteral(". %1").arg(errorText);
        throw AppException(message);
    }
    return *this;
}

QString Process::output()
{
    const QByteArray bytes = readAllStandardOutput();
    if (bytes.isEmpty())
        return QString();
    return QString::fromLocal8Bit(bytes.constData(), bytes.size());
}
