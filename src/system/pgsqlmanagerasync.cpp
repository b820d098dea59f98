// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/pgsqlmanagerasync.h"

#include "system/pgsqlcluster.h"

#include <QThreadPool>
#include <QtConcurrent>

namespace {

// One read: a manager of its own, so that two reads never fill or delete one list, and the
// watcher that reports it. A run lives until a later run has reported its clusters.
class ReadRun : public QObject
{
    Q_OBJECT

public:
    explicit ReadRun(QObject *parent)
        : QObject(parent)
    { }

    PgsqlManager manager;
    QFutureWatcher<void> watcher {this}; // a child, so that its signal leads back to the run
    bool reported = false;
};

} // namespace

PgsqlManagerAsync::PgsqlManagerAsync(QObject *parent)
    : QObject(parent)
{
    qRegisterMetaType<AppException>();
    qRegisterMetaType<QList<PgsqlCluster *>>();
}

PgsqlManagerAsync::~PgsqlManagerAsync()
{
    // Pool threads work on the runs' managers; they must be done before the runs go away.
    const QList<ReadRun *> runs = findChildren<ReadRun *>(QString(), Qt::FindDirectChildrenOnly);
    for (ReadRun *run : runs)
        run->watcher.waitForFinished();
}

void PgsqlManagerAsync::startReadClusters()
{
    auto *run = new ReadRun(this);
    connect(&run->watcher, &QFutureWatcher<void>::finished, this,
            &PgsqlManagerAsync::readClustersFinished);
    PgsqlManager *manager = &run->manager;
    run->watcher.setFuture(QtConcurrent::run(QThreadPool::globalInstance(), [this, manager] {
        try {
            manager->readClusters();
        } catch (const AppException &e) {
            // AppException does not survive the trip through the future (it would arrive as a
            // plain QException), so its text travels by signal instead.
            emit exceptionArise(e);
        }
    }));
}

void PgsqlManagerAsync::readClustersFinished()
{
    auto *run = qobject_cast<ReadRun *>(sender() ? sender()->parent() : nullptr);
    if (!run)
        return;
    run->reported = true;
    emit clustersReaded(run->manager.getClusters());
    // The clusters reported before stay valid until now, as they did with one shared list.
    const QList<ReadRun *> runs = findChildren<ReadRun *>(QString(), Qt::FindDirectChildrenOnly);
    for (ReadRun *other : runs) {
        if (other != run && other->reported)
            other->deleteLater();
    }
}

#include "pgsqlmanagerasync.moc"
