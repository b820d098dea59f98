// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementtask.h"

#include <QCoreApplication>
#include <QStringList>

/**
 * Starts a program (a service's own control tool, for instance) detached, as the current user
 * or through "runuser" as another one, and does not wait for it. The deriving class sets the
 * program, the arguments and the user.
 */
class OVTCOMMON_EXPORT ControlServiceTask : public ElementTask
{
    Q_DECLARE_TR_FUNCTIONS(ControlServiceTask)

public:
    explicit ControlServiceTask(Element *element);

    /**
     * Starts the program with its arguments detached; with a user set, starts "runuser" with
     * "-u", the user, the program and the arguments instead. No shell is involved. Fails only
     * when the program cannot be started.
     */
    void run() override;
    /** Does nothing: the started program is not followed. */
    void afterRun() override;

protected:
    /**
     * Whether "dpkg-query" lists an installed package matching @p name: some line of its
     * "${db:Status-Abbrev}${binary:Package}" output matches the regular expression "ii\s" +
     * @p name (case-sensitive; @p name is a pattern). False when the query cannot run, takes
     * longer than 30000 ms or fails.
     */
    static bool existPackage(const QString &name);

    QString _user; // empty: the current user
    QString _reserved; // always empty
    QString _program;
    QStringList _arguments;
};
