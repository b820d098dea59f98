// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "postgresqlplugin.h"

#include "element/elementdata.h"
#include "postgresqltasks.h"
#include "postgresqlwidget.h"
#include "system/appexception.h"
#include "system/pgsqlmanager.h"
#include "task/taskobserver.h"

#include <unistd.h>

PostgresqlPlugin::PostgresqlPlugin()
    : _valid(false)
{
    _name = tr("PostgreSQL");
    _description = tr("PostgreSQL clusters and their users");
    try {
        _valid = PgsqlManager().packagesInslled();
    } catch (const AppException &) {
        // dpkg cannot tell: the plug-in counts as unusable, the dialog names the package.
    }
    if (_valid)
        _modules << new PostgresqlModule(this);
}

bool PostgresqlPlugin::isValid() const
{
    return _valid;
}

QStringList PostgresqlPlugin::requiredPackageNames() const
{
    return {QStringLiteral("postgresql")};
}

PostgresqlModule::PostgresqlModule(QObject *parent)
    : Module(QStringLiteral("postgresql"), parent, false)
{
    _expectedDepth = 1;
    // The tool shows the title in its module tree; the id stays the settings key.
    _moduleData->insert(QStringLiteral("title"), tr("PostgreSQL"));
    _moduleData->insert(QStringLiteral("description"), tr("PostgreSQL clusters and their users"));
    _elementNodes << new PgsqlContainerElement(*this);
    for (const char *type : {PgsqlTypes::folder, PgsqlTypes::cluster, PgsqlTypes::user})
        insertElementWidget(new PgsqlElementWidget(*this, QLatin1String(type)));
    connectElementWidgets();
}

bool PostgresqlModule::isRoot(const Module &)
{
    return geteuid() == 0;
}

void PostgresqlModule::performOperation(ContextOperation *context, OperationType type,
                                        ElementData *data, int)
{
    Element *element = context ? context->elementContext() : nullptr;
    AbstractTask *task = nullptr;
    if (auto *container = qobject_cast<PgsqlContainerElement *>(element)) {
        if (type == ReadContentOperation)
            task = new ReadPgsqlContentTask(container);
        else if (type == CreateOperation && data && isRoot(*this))
            task = new CreatePgsqlUserTask(container, data);
    } else if (auto *user = qobject_cast<PgsqlUserElement *>(element)) {
        if (type == DeleteOperation && isRoot(*this))
            task = new DeletePgsqlUserTask(user);
    }
    if (task)
        TaskObserver::instance()->performTask(task);
    else if (type == CreateOperation || type == UpdateOperation)
        delete data;
}

PgsqlContainerElement::PgsqlContainerElement(Module &module)
    : ContainerElement(module, &Module::defaultFalse)
{
    _elementType = QLatin1String(PgsqlTypes::folder);
    _title = _id = QStringLiteral("PostgreSQL");
    // The tool narrows its element tree to the chosen module by this group.
    _groupElementType = module.id();
    _expectedDepth = 1;
    _elementData = new ElementData;
}

PgsqlContainerElement::PgsqlContainerElement(Module &module, ElementData *cluster)
    : ContainerElement(module, &PostgresqlModule::isRoot)
{
    _elementType = QLatin1String(PgsqlTypes::cluster);
    _elementData = cluster;
    setTitle(cluster->value("version").toString() + QLatin1Char('/') + cluster->name());
}

QString PgsqlContainerElement::caption() const
{
    if (elementType() == QLatin1String(PgsqlTypes::folder))
        return tr("PostgreSQL clusters of this machine");
    return tr("Cluster %1").arg(title());
}

QVariant PgsqlContainerElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("network-server-database"),
                                QIcon::fromTheme(QStringLiteral("folder")));
    return ContainerElement::data(column, role);
}

PgsqlUserElement::PgsqlUserElement(Module &module, const QString &name)
    : OrdinaryElement(module, &PostgresqlModule::isRoot)
{
    _elementType = QLatin1String(PgsqlTypes::user);
    _elementData = new ElementData;
    _elementData->setName(name);
    setTitle(name);
}

QString PgsqlUserElement::caption() const
{
    return tr("Database user %1").arg(title());
}

QString PgsqlUserElement::questionForRemove() const
{
    return tr("Drop the database user %1? Objects it owns block the drop.").arg(title());
}
