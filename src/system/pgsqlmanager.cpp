// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/pgsqlmanager.h"

#include "system/package.h"
#include "system/pgsqlcluster.h"
#include "system/process.h"

#include <QThread>

PgsqlManager::PgsqlManager(QObject *parent)
    : QObject(parent)
{ }

PgsqlManager::~PgsqlManager()
{
    qDeleteAll(_clusters);
}

bool PgsqlManager::packagesInslled() const
{
    return Package(QStringLiteral("postgresql-[0123456789]*")).isInstalled();
}

void PgsqlManager::readClusters()
{
    qDeleteAll(_clusters);
    _clusters.clear();

    const QString output
        = Process()
              .simpleStart(QStringLiteral("pg_lsclusters"), {QStringLiteral("--no-header")}, true)
              .output();
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        PgsqlCluster *cluster = PgsqlCluster::fromString(line);
        // Reading may run in a pool thread; the clusters belong with their owner.
        cluster->moveToThread(thread());
        _clusters.append(cluster);
    }
}

QList<PgsqlCluster *> PgsqlManager::getClusters() const
{
    return _clusters;
}

bool PgsqlManager::allClustersWork(QList<PgsqlCluster *> clusters)
{
    for (const PgsqlCluster *cluster : qAsConst(clusters)) {
        if (!cluster->isWork())
            return false;
    }
    return true;
}
