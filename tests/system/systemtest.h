// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treestring.h"

#include <QtCore>

#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

// Sets an environment variable for the object's lifetime.
struct EnvVar
{
    EnvVar(const char *name, const QByteArray &value)
        : name(name)
        , saved(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~EnvVar() { qputenv(name, saved); }
    const char *name;
    QByteArray saved;
};

inline QByteArray pathWith(const QString &dir)
{
    return QFile::encodeName(dir) + ':' + qgetenv("PATH");
}

inline bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(bytes) == bytes.size();
}

inline QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "<unreadable>";
}

// Enters a mount namespace whose mounts propagate nowhere, so a test can mount over system
// paths unseen. Call while single-threaded. Returns why it failed, or an empty string.
inline QString enterPrivateMountNamespace()
{
    if (geteuid() != 0)
        return QStringLiteral("needs root to create a private mount namespace");
    if (unshare(CLONE_NEWNS) != 0
        || mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return "private mount namespace: " + QString::fromLocal8Bit(strerror(errno));
    return QString();
}
