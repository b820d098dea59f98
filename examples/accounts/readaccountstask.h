// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementdata.h"
#include "task/abstracttask.h"

#include <QCoreApplication>
#include <QPointer>
#include <QVector>

class AccountFolderElement;

/**
 * Reads the users or the groups on a worker thread and hangs them under the folder that asked.
 *
 * With an empty path the system's databases are read through getpwent() and getgrent(), so the
 * accounts of directory services (LDAP, SSSD) appear next to the local ones. With a path, that
 * file is read in passwd or group format instead (for tests and for systems mounted elsewhere).
 */
class ReadAccountsTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadAccountsTask)

public:
    explicit ReadAccountsTask(AccountFolderElement *folder, const QString &path = QString());

    /**
     * The records of the users: "user", "isLogin", "uid", "gid", "gecos", "home", "shell".
     * Throws AppException when @p path cannot be opened.
     */
    static QVector<ElementData> readUsers(const QString &path = QString(),
                                          const QString &shellsPath = QString());
    /** The shells of @p path (default /etc/shells) in file order, without comments. */
    static QStringList loginShells(const QString &path = QString());
    /** The records of the groups: "name", "gid", "members". Throws as readUsers() does. */
    static QVector<ElementData> readGroups(const QString &path = QString());

    /** Worker thread: reads into the result list, touching no element. */
    void run() override;
    /** User-interface thread: replaces the folder's children by what was read. */
    void afterRun() override;

private:
    // The plug-ins may be reloaded while the task waits: a guarded pointer tells.
    QPointer<AccountFolderElement> _folder;
    bool _users; // copied on the user-interface thread, read by run()
    const QString _path;
    QVector<ElementData> _records;
};
