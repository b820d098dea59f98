// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStringList>

/**
 * A child process that is run to its end in one call.
 *
 * simpleStart() blocks the calling thread for up to 30 seconds and turns every failure into an
 * AppException, so a command reads as one line:
 * @code
 * const QString out = Process().simpleStart("dpkg-query", {"-W", name}, true).output();
 * @endcode
 * Run it from a task or worker thread when the user interface must not block. One Process
 * object belongs to one thread.
 */
class OVTCOMMON_EXPORT Process : public QProcess
{
    Q_DECLARE_TR_FUNCTIONS(Process)

public:
    explicit Process(QObject *parent = nullptr);

    /**
     * Runs @p program with @p arguments and waits up to 30 seconds for it to finish. Its
     * standard input is closed at once, so a child that reads it sees end of file instead of
     * waiting for the time-out.
     *
     * Throws AppException when the program cannot be started, does not finish in time or
     * crashes ("Process '...' not finished"), and, when @p checkExitCode is true, when it
     * exits with a non-zero code (the message then ends with the child's standard error).
     * With @p checkExitCode false a non-zero exit code is left to the caller.
     *
     * Returns this process, so that output() can be chained.
     */
    Process &simpleStart(const QString &program, const QStringList &arguments, bool checkExitCode);

    /**
     * Everything the child wrote to standard output, every byte kept (NUL included); a null
     * string when it wrote nothing.
     */
    QString output();
};
