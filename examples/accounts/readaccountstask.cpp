// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "readaccountstask.h"

#include "accountelement.h"
#include "accountfolderelement.h"
#include "groupelement.h"
#include "system/appexception.h"

#include <QFile>
#include <QMutex>
#include <QSet>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <grp.h>
#include <pwd.h>

namespace {

// getpwent() and getgrent() keep one cursor per process: two reads at once would interleave.
QMutex databaseMutex;

// Opens a file in account-database format, or throws with the reason.
FILE *openDatabase(const QString &path)
{
    FILE *file = std::fopen(QFile::encodeName(path).constData(), "re");
    if (!file)
        throw AppException(QCoreApplication::translate("ReadAccountsTask", "Cannot read %1: %2")
                               .arg(path, QString::fromLocal8Bit(std::strerror(errno))));
    return file;
}

} // namespace

ReadAccountsTask::ReadAccountsTask(AccountFolderElement *folder, const QString &path)
    : AbstractTask(nullptr)
    , _folder(folder)
    , _users(folder->kind() == AccountFolderElement::Users)
    , _path(path)
{
    taskDescription().setDescription(_users ? tr("Read the user accounts") : tr("Read the groups"));
}

QStringList ReadAccountsTask::loginShells(const QString &path)
{
    QStringList shells;
    QFile file(path.isEmpty() ? QStringLiteral("/etc/shells") : path);
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        while (!file.atEnd()) {
            const QString shell = QString::fromLocal8Bit(file.readLine()).trimmed();
            if (!shell.isEmpty() && !shell.startsWith(QLatin1Char('#')))
                shells.append(shell);
        }
    }
    return shells;
}

QVector<ElementData> ReadAccountsTask::readUsers(const QString &path, const QString &shellsPath)
{
    // An account logs in when its shell is one of /etc/shells; /usr/sbin/nologin, /bin/false
    // and /bin/sync are not.
    const QStringList shellList = loginShells(shellsPath);
    const QSet<QString> shells(shellList.cbegin(), shellList.cend());
    QVector<ElementData> records;
    const QMutexLocker locker(&databaseMutex);
    FILE *file = path.isEmpty() ? nullptr : openDatabase(path);
    if (!file)
        setpwent();
    while (passwd *entry = file ? fgetpwent(file) : getpwent()) {
        ElementData record;
        const QString shell = QString::fromLocal8Bit(entry->pw_shell);
        record.insert(QStringLiteral("user"), QString::fromLocal8Bit(entry->pw_name));
        record.insert(QStringLiteral("isLogin"), shells.contains(shell));
        record.insert(QStringLiteral("uid"), uint(entry->pw_uid));
        record.insert(QStringLiteral("gid"), uint(entry->pw_gid));
        record.insert(QStringLiteral("gecos"), QString::fromLocal8Bit(entry->pw_gecos));
        record.insert(QStringLiteral("home"), QString::fromLocal8Bit(entry->pw_dir));
        record.insert(QStringLiteral("shell"), shell);
        records.append(record);
    }
    if (file)
        std::fclose(file);
    else
        endpwent();
    return records;
}

QVector<ElementData> ReadAccountsTask::readGroups(const QString &path)
{
    QVector<ElementData> records;
    const QMutexLocker locker(&databaseMutex);
    FILE *file = path.isEmpty() ? nullptr : openDatabase(path);
    if (!file)
        setgrent();
    while (group *entry = file ? fgetgrent(file) : getgrent()) {
        QStringList members;
        for (char **member = entry->gr_mem; member && *member; ++member)
            members << QString::fromLocal8Bit(*member);
        ElementData record;
        record.insert(QStringLiteral("name"), QString::fromLocal8Bit(entry->gr_name));
        record.insert(QStringLiteral("gid"), uint(entry->gr_gid));
        record.insert(QStringLiteral("members"), members);
        records.append(record);
    }
    if (file)
        std::fclose(file);
    else
        endgrent();
    return records;
}

void ReadAccountsTask::run()
{
    try {
        _records = _users ? readUsers(_path) : readGroups(_path);
        // Without an explicit outcome the task would stay "processing" in the observer.
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("%n entry(s) read", nullptr, _records.size()));
    } catch (const AppException &e) {
        // Failures are data, not exceptions: the observer shows the message.
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(e.getText());
    }
    // Last: from here on the task may already be deleted on the user-interface thread.
    AbstractTask::run();
}

void ReadAccountsTask::afterRun()
{
    if (!_folder || taskDescription().status() != TaskDescription::Success)
        return;
    Module &module = _folder->module();
    // A second read (after Module::resetConteinerElement()) starts from an empty folder.
    _folder->clearDelete();
    QList<TreeNode *> children;
    for (const ElementData &record : qAsConst(_records)) {
        if (_users)
            children << new AccountElement(module, record);
        else
            children << new GroupElement(module, record);
    }
    // One insertion: views see one block of new rows, not one per account.
    _folder->append(children);
}
