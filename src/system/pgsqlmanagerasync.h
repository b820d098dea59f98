#pragma once

#include "ovtcommon_export.h"
#include "system/appexception.h"
#include "system/pgsqlmanager.h"

#include <QFutureWatcher>
#include <QList>
#include <QObject>

class PgsqlCluster;

/**
 * Reads the PostgreSQL clusters on the global thread pool and reports the result by signal.
 *
 * After every run clustersReaded() is emitted in this object's thread, also after a failed one
 * (then with the clusters read before the failure, usually none). A failure is reported first
 * by exceptionArise(), which is emitted from the pool thread: connect to it with a queued
 * connection (AppException is a registered meta-type) or with a receiver that accepts calls
 * from another thread. A second start waits for the run in progress and then watches the new one.
 */
class OVTCOMMON_EXPORT PgsqlManagerAsync : public QObject
{
    Q_OBJECT

public:
    explicit PgsqlManagerAsync(QObject *parent = nullptr);
    /** Waits for a run still in progress. */
    ~PgsqlManagerAsync() override;

    /** Starts a run on the global thread pool, after waiting for one still in progress. */
    void startReadClusters();

signals:
    /** The clusters stay owned by this object and are deleted by the next run. */
    void clustersReaded(const QList<PgsqlCluster *> &clusters);
    void exceptionArise(const AppException &exception);

private slots:
    void readClustersFinished();

private:
    void performReadClusters();

    QFutureWatcher<void> _watcher;
    PgsqlManager _manager;
};
