// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QtCore>

#include <unistd.h>

// Runs a command to its end (two minutes at most) and returns its merged output.
inline QString run(const QString &program, const QStringList &arguments, int *exitCode = nullptr)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(program, arguments);
    process.waitForFinished(120000);
    if (exitCode)
        *exitCode = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    return QString::fromLocal8Bit(process.readAll());
}

// A cluster for this run only, dropped with the guard.
struct ThrowawayCluster
{
    explicit ThrowawayCluster(const QString &suffix = QString())
        : name(QStringLiteral("ovttest%1%2").arg(getpid()).arg(suffix))
    {
        const QStringList versions
            = QDir("/usr/lib/postgresql").entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
        if (geteuid() != 0 || versions.isEmpty()
            || QStandardPaths::findExecutable("pg_createcluster").isEmpty()) {
            error = "needs root, a PostgreSQL server and postgresql-common";
            return;
        }
        version = versions.last();
        int code = 0;
        error = run("pg_createcluster", {version, name, "--start-conf=manual", "--locale=C.UTF-8"},
                    &code);
        created = code == 0;
        line = run("pg_lsclusters", {"--no-header", version, name}).simplified();
    }
    ~ThrowawayCluster()
    {
        if (created)
            run("pg_dropcluster", {"--stop", version, name});
    }
    QString version, name, line, error;
    bool created = false;
};
