// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/createtask.h"
#include "task/deletetask.h"
#include "task/readcontenttask.h"

#include <QCoreApplication>
#include <QList>
#include <QPointer>
#include <QStringList>

class PgsqlContainerElement;
class PgsqlUserElement;

/**
 * Reads the children of the folder (the clusters, via pg_lsclusters) or of a cluster (its
 * users, via psql as the database superuser; root only, and only while the cluster runs).
 */
class ReadPgsqlContentTask : public ReadContentTask
{
    Q_DECLARE_TR_FUNCTIONS(ReadPgsqlContentTask)

public:
    explicit ReadPgsqlContentTask(PgsqlContainerElement *container);
    void run() override;
    void afterRun() override;

private:
    QPointer<PgsqlContainerElement> _container;
    const QString _version; // empty: the folder
    const QString _cluster;
    QList<QVariantMap> _clusters;
    QStringList _users;
};

/** Creates the database user named by the task's data in a cluster. */
class CreatePgsqlUserTask : public CreateTask
{
    Q_DECLARE_TR_FUNCTIONS(CreatePgsqlUserTask)

public:
    CreatePgsqlUserTask(PgsqlContainerElement *cluster, ElementData *data);
    void run() override;
    void afterRun() override;

private:
    QPointer<PgsqlContainerElement> _cluster;
    const QString _version;
    const QString _clusterName;
};

/** Drops one database user. */
class DeletePgsqlUserTask : public DeleteTask
{
    Q_DECLARE_TR_FUNCTIONS(DeletePgsqlUserTask)

public:
    explicit DeletePgsqlUserTask(PgsqlUserElement *user);
    void run() override;

private:
    const QString _version;
    const QString _clusterName;
    const QString _user;
};
