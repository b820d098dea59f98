#include "system/pgsqlmanagerasync.h"

#include "system/pgsqlcluster.h"

#include <QThreadPool>
#include <QtConcurrent>

PgsqlManagerAsync::PgsqlManagerAsync(QObject *parent)
    : QObject(parent)
{
    qRegisterMetaType<AppException>();
    qRegisterMetaType<QList<PgsqlCluster *>>();
    connect(&_watcher, &QFutureWatcher<void>::finished, this,
            &PgsqlManagerAsync::readClustersFinished);
}

PgsqlManagerAsync::~PgsqlManagerAsync()
{
    // The pool thread works on _manager; it must be done before the manager goes away.
    _watcher.waitForFinished();
}

void PgsqlManagerAsync::startReadClusters()
{
    // Two runs at once would delete and fill the same cluster list from two threads; a run
    // still in progress is finished first.
    _watcher.waitForFinished();
    _watcher.setFuture(QtConcurrent::run(QThreadPool::globalInstance(), this,
                                         &PgsqlManagerAsync::performReadClusters));
}

void PgsqlManagerAsync::performReadClusters()
{
    try {
        _manager.readClusters();
    } catch (const AppException &e) {
        // AppException does not survive the trip through the future (it would arrive as a
        // plain QException), so its text travels by signal instead.
        emit exceptionArise(e);
    }
}

void PgsqlManagerAsync::readClustersFinished()
{
    emit clustersReaded(_manager.getClusters());
}
