// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "postgresqltasks.h"

#include "element/elementdata.h"
#include "postgresqlplugin.h"
#include "system/appexception.h"
#include "system/pgsqlcluster.h"
#include "system/pgsqlmanager.h"

#include <QRegularExpression>

#include <unistd.h>

namespace {

QString clusterField(Element *element, const char *key)
{
    return element && element->elementData() ? element->elementData()->value(key).toString()
                                             : QString();
}

// The listing is read afresh: a cluster object of an earlier read may be stale or gone.
const PgsqlCluster *findCluster(PgsqlManager &manager, const QString &version, const QString &name)
{
    manager.readClusters();
    for (const PgsqlCluster *cluster : manager.getClusters())
        if (cluster->version() == version && cluster->name() == name)
            return cluster;
    throw AppException(
        QCoreApplication::translate("ReadPgsqlContentTask", "The cluster %1/%2 no longer exists.")
            .arg(version, name));
}

// User names reach SQL and a shell command line: only plain identifiers pass.
void checkUserName(const QString &name)
{
    static const QRegularExpression plain(QStringLiteral("^[a-z_][a-z0-9_]{0,62}$"));
    if (!plain.match(name).hasMatch())
        throw AppException(
            QCoreApplication::translate("CreatePgsqlUserTask",
                                        "\"%1\" is not a valid user name: use lower-case letters, "
                                        "digits and \"_\", starting with a letter or \"_\".")
                .arg(name));
}

void fail(TaskDescription &description, const QString &message)
{
    description.setStatus(TaskDescription::Fail);
    description.setMessage(message);
}

} // namespace

ReadPgsqlContentTask::ReadPgsqlContentTask(PgsqlContainerElement *container)
    : ReadContentTask(container)
    , _container(container)
    , _version(clusterField(container, "version"))
    , _cluster(clusterField(container, "name"))
{
    taskDescription().setDescription(
        _version.isEmpty() ? tr("Read the PostgreSQL clusters")
                           : tr("Read the users of cluster %1/%2").arg(_version, _cluster));
}

void ReadPgsqlContentTask::run()
{
    try {
        PgsqlManager manager;
        if (_version.isEmpty()) {
            QString unreadable;
            try {
                manager.readClusters();
            } catch (const AppException &e) {
                // One odd line (a cluster being created) must not hide the others.
                unreadable = e.getText();
            }
            for (const PgsqlCluster *c : manager.getClusters())
                _clusters.append({{"version", c->version()},
                                  {"name", c->name()},
                                  {"port", c->port()},
                                  {"status", c->status()},
                                  {"owner", c->owner()},
                                  {"dataDirectory", c->dataDirectory()},
                                  {"logFile", c->logFile()}});
            taskDescription().setStatus(unreadable.isEmpty() ? TaskDescription::Success
                                                             : TaskDescription::Warning);
            taskDescription().setMessage(
                unreadable.isEmpty() ? tr("%n cluster(s)", nullptr, _clusters.size()) : unreadable);
        } else if (geteuid() != 0) {
            taskDescription().setStatus(TaskDescription::Warning);
            taskDescription().setMessage(tr("Only root can list the users of a cluster."));
        } else {
            const PgsqlCluster *cluster = findCluster(manager, _version, _cluster);
            if (!cluster->isWork())
                throw AppException(tr("The cluster %1/%2 is not running; start it with "
                                      "pg_ctlcluster to see its users.")
                                       .arg(_version, _cluster));
            _users = cluster->usernames();
            taskDescription().setStatus(TaskDescription::Success);
            taskDescription().setMessage(tr("%n user(s)", nullptr, _users.size()));
        }
    } catch (const AppException &e) {
        fail(taskDescription(), e.getText());
    }
    AbstractTask::run();
}

void ReadPgsqlContentTask::afterRun()
{
    const TaskDescription::TaskStatus status = taskDescription().status();
    if (_container
        && (status == TaskDescription::Success
            || (status == TaskDescription::Warning && !_clusters.isEmpty()))) {
        Module &module = _container->module();
        _container->clearDelete();
        QList<TreeNode *> children;
        for (const QVariantMap &fields : qAsConst(_clusters)) {
            auto *data = new ElementData;
            for (auto it = fields.cbegin(); it != fields.cend(); ++it)
                data->insert(it.key(), it.value());
            children << new PgsqlContainerElement(module, data);
        }
        for (const QString &user : qAsConst(_users))
            children << new PgsqlUserElement(module, user);
        _container->append(children);
    }
    if (_container)
        ReadContentTask::afterRun();
}

CreatePgsqlUserTask::CreatePgsqlUserTask(PgsqlContainerElement *cluster, ElementData *data)
    : CreateTask(cluster, data)
    , _cluster(cluster)
    , _version(clusterField(cluster, "version"))
    , _clusterName(clusterField(cluster, "name"))
{
    taskDescription().setDescription(
        tr("Create the database user %1 in %2/%3").arg(data->name(), _version, _clusterName));
}

void CreatePgsqlUserTask::run()
{
    try {
        checkUserName(_elementData->name());
        PgsqlManager manager;
        findCluster(manager, _version, _clusterName)->createUser(_elementData->name());
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("User %1 created").arg(_elementData->name()));
    } catch (const AppException &e) {
        fail(taskDescription(), e.getText());
    }
    AbstractTask::run();
}

void CreatePgsqlUserTask::afterRun()
{
    if (!_cluster)
        return;
    const QString name = _elementData->name();
    if (taskDescription().status() == TaskDescription::Success && !_cluster->canFetchMore()) {
        bool known = false;
        for (TreeNode *node : _cluster->childNodes())
            known = known || static_cast<Element *>(node)->title() == name;
        if (!known)
            _cluster->append(QList<TreeNode *> {new PgsqlUserElement(_cluster->module(), name)});
    }
    CreateTask::afterRun();
}

DeletePgsqlUserTask::DeletePgsqlUserTask(PgsqlUserElement *user)
    : DeleteTask(user)
    , _version(clusterField(qobject_cast<Element *>(user->parentNode()), "version"))
    , _clusterName(clusterField(qobject_cast<Element *>(user->parentNode()), "name"))
    , _user(user->title())
{
    taskDescription().setDescription(
        tr("Drop the database user %1 of %2/%3").arg(_user, _version, _clusterName));
}

void DeletePgsqlUserTask::run()
{
    try {
        checkUserName(_user);
        PgsqlManager manager;
        findCluster(manager, _version, _clusterName)->deleteUser(_user);
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("User %1 dropped").arg(_user));
    } catch (const AppException &e) {
        fail(taskDescription(), e.getText());
    }
    AbstractTask::run();
}
