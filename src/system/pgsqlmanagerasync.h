// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

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
 * from another thread.
 *
 * Each start runs with a list of its own and returns at once, also while another run is in
 * progress: runs neither wait for each other nor share clusters, and each reports its own
 * complete list, in the order the runs finish.
 */
class OVTCOMMON_EXPORT PgsqlManagerAsync : public QObject
{
    Q_OBJECT

public:
    explicit PgsqlManagerAsync(QObject *parent = nullptr);
    /** Waits for a run still in progress. */
    ~PgsqlManagerAsync() override;

    /** Starts a run on the global thread pool; never waits for a run in progress. */
    void startReadClusters();

signals:
    /**
     * The clusters stay owned by this object; they are deleted once a later run has reported.
     */
    void clustersReaded(const QList<PgsqlCluster *> &clusters);
    void exceptionArise(const AppException &exception);

private slots:
    void readClustersFinished();

private:
    // Unused since every run has a watcher and a manager of its own; kept so the layout stays.
    QFutureWatcher<void> _watcher;
    PgsqlManager _manager;
};
