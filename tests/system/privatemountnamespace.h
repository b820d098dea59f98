#pragma once

#include <QString>

#include <cerrno>
#include <cstring>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

/**
 * Moves the test process into a mount namespace of its own whose mounts propagate nowhere, so
 * that a test can mount over system paths without the machine seeing it. Must run before any
 * thread is started (first thing in main()). Returns an empty string on success, else the
 * reason the tests that need it are skipped.
 */
inline QString enterPrivateMountNamespace()
{
    if (geteuid() != 0)
        return QStringLiteral("needs root to create a private mount namespace");
    if (unshare(CLONE_NEWNS) != 0)
        return QStringLiteral("unshare(CLONE_NEWNS) failed: %1")
            .arg(QString::fromLocal8Bit(strerror(errno)));
    if (mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0)
        return QStringLiteral("making the mount tree private failed: %1")
            .arg(QString::fromLocal8Bit(strerror(errno)));
    return QString();
}
