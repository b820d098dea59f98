// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/containerelement.h"
#include "element/ordinaryelement.h"
#include "plugin/module.h"
#include "plugin/plugin.h"

/**
 * The PostgreSQL clusters of the machine and their users. Without a server package the
 * plug-in is invalid, so the plug-in dialog names the package to install. Users are listed,
 * created and dropped only by root.
 */
class PostgresqlPlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "postgresql.json")
    Q_INTERFACES(Plugin)

public:
    PostgresqlPlugin();
    /** Asks dpkg once, at load, whether a versioned server package is installed. */
    bool isValid() const override;
    QStringList requiredPackageNames() const override;

private:
    bool _valid;
};

/** Turns the elements' operations into the PostgreSQL tasks. */
class PostgresqlModule : public Module
{
    Q_OBJECT

public:
    explicit PostgresqlModule(QObject *parent);

    /** Effective user root: su to the database superuser works without a password. */
    static bool isRoot(const Module &module);

    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};

/** Element types: the folder of clusters, a cluster (its users inside) and a user. */
namespace PgsqlTypes {
constexpr const char *folder = "pgClusters";
constexpr const char *cluster = "pgCluster";
constexpr const char *user = "pgUser";
} // namespace PgsqlTypes

/** A container element of this plug-in: the folder or one cluster. */
class PgsqlContainerElement : public ContainerElement
{
    Q_OBJECT

public:
    /** The folder: a fixed top-level node. */
    explicit PgsqlContainerElement(Module &module);
    /** A cluster with the fields the listing gave ("version", "name", "port", ...). */
    PgsqlContainerElement(Module &module, ElementData *cluster);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};

/** One database user of a cluster. */
class PgsqlUserElement : public OrdinaryElement
{
    Q_OBJECT

public:
    PgsqlUserElement(Module &module, const QString &name);

    QString caption() const override;
    QString questionForRemove() const override;
};
