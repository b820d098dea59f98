#include "readaccountstask.h"

#include "accountelement.h"
#include "element/containerelement.h"
#include "plugin/module.h"

#include <QFile>
#include <QSet>

ReadAccountsTask::ReadAccountsTask(ContainerElement *folder, const QString &path)
    : AbstractTask(nullptr)
    , _folder(folder)
    , _path(path)
{
    taskDescription().setDescription(tr("Read the accounts of %1").arg(path));
}

void ReadAccountsTask::run()
{
    QFile file(_path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        // Failures are data, not exceptions: the observer shows the message.
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(tr("Cannot read %1: %2").arg(_path, file.errorString()));
        return AbstractTask::run();
    }
    // An account logs in when its shell is one of /etc/shells; /usr/sbin/nologin, /bin/false
    // and /bin/sync are not.
    QSet<QString> loginShells;
    QFile shells(QStringLiteral("/etc/shells"));
    if (shells.open(QIODevice::ReadOnly | QIODevice::Text)) {
        while (!shells.atEnd()) {
            const QString shell = QString::fromLocal8Bit(shells.readLine()).trimmed();
            if (!shell.isEmpty() && !shell.startsWith(QLatin1Char('#')))
                loginShells.insert(shell);
        }
    }
    // name:password:uid:gid:gecos:home:shell
    while (!file.atEnd()) {
        const QStringList fields = QString::fromLocal8Bit(file.readLine()).trimmed().split(':');
        if (fields.size() < 7 || fields.at(0).isEmpty())
            continue;
        _accounts.append({fields.at(0), fields.at(2).toUInt(), fields.at(5), fields.at(6),
                          loginShells.contains(fields.at(6))});
    }
    // Without an explicit outcome the task would stay "processing" in the observer.
    taskDescription().setStatus(TaskDescription::Success);
    taskDescription().setMessage(tr("%n account(s) read", nullptr, _accounts.size()));
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
    QList<TreeNode *> accounts;
    for (const Account &account : qAsConst(_accounts))
        accounts << new AccountElement(module, account.user, account.uid, account.home,
                                       account.shell, account.isLogin);
    // One insertion: views see one block of new rows, not one per account.
    _folder->append(accounts);
}
