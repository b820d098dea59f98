#pragma once

#include "task/abstracttask.h"

#include <QCoreApplication>
#include <QPointer>
#include <QString>
#include <QVector>

class ContainerElement;

/**
 * Reads the accounts of /etc/passwd on a worker thread and hangs them, as AccountElements,
 * under the folder that asked for them. Reads only; the file is never written.
 */
class ReadAccountsTask : public AbstractTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadAccountsTask)

public:
    explicit ReadAccountsTask(ContainerElement *folder,
                              const QString &path = QStringLiteral("/etc/passwd"));

    /** Worker thread: parses the file into the result list, touching no element. */
    void run() override;
    /** User-interface thread: replaces the folder's children by the accounts read. */
    void afterRun() override;

private:
    struct Account
    {
        QString user;
        uint uid;
        QString home;
        QString shell;
        bool isLogin;
    };

    // The plug-ins may be reloaded while the task waits: a guarded pointer tells.
    QPointer<ContainerElement> _folder;
    const QString _path;
    QVector<Account> _accounts;
};
