// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QList>
#include <QObject>

class PgsqlCluster;

/**
 * Lists the PostgreSQL clusters of the machine with "pg_lsclusters" and owns the result.
 */
class OVTCOMMON_EXPORT PgsqlManager : public QObject
{
    Q_OBJECT

public:
    explicit PgsqlManager(QObject *parent = nullptr);
    ~PgsqlManager() override;

    /** True when a versioned server package ("postgresql-<version>") is installed. */
    bool packagesInslled() const;

    /**
     * Deletes the clusters read before and reads them again. Throws AppException when the
     * listing tool fails or a line cannot be parsed; the clusters parsed before that line stay.
     */
    void readClusters();

    /** The clusters of the last read; they stay owned by the manager until the next read. */
    QList<PgsqlCluster *> getClusters() const;

    /** True when every cluster runs (checked in order, stopping at the first that does not). */
    static bool allClustersWork(QList<PgsqlCluster *> clusters);

private:
    QList<PgsqlCluster *> _clusters;
};
