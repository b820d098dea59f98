// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "pluginmodel.h"

#include "ovticon_p.h"
#include "plugin/plugin.h"
#include "plugin/plugincontainer.h"
#include "plugin/simpleplugin.h"
#include "treenode/horizontalheader_p.h"
#include "treenode/treenode.h"

#include <QIcon>
#include <QPluginLoader>

namespace {

Plugin *toPlugin(void *pointer)
{
    return qobject_cast<Plugin *>(static_cast<QObject *>(pointer));
}

} // namespace

PluginModel::PluginModel(PluginContainer *pluginContainer, QObject *parent)
    : QAbstractItemModel(parent)
    , _pluginContainer(pluginContainer)
{
    Q_ASSERT(pluginContainer);
    connect(pluginContainer, &NodeContainer::nodeContainerAboutToBeReset, this,
            &PluginModel::pluginContainerAboutToBeReset);
    connect(pluginContainer, &NodeContainer::nodeContainerReset, this,
            &PluginModel::pluginContainerReset);
}

PluginModel::~PluginModel() = default;

QModelIndex PluginModel::ObjectToIndex(QObject *object) const
{
    if (!object)
        return QModelIndex();
    auto *node = qobject_cast<TreeNode *>(object);
    const QList<PluginContainer::PluginEntry> &plugins = _pluginContainer->plugins();
    for (int row = 0; row < plugins.size(); ++row) {
        Plugin *plugin = plugins.at(row).second;
        if (plugin == object || plugins.at(row).first == object)
            return createIndex(row, 0, nullptr);
        const int moduleRow = plugin && node ? plugin->modules().indexOf(node) : -1;
        if (moduleRow >= 0)
            return createIndex(moduleRow, 0, plugin);
    }
    return QModelIndex();
}

QObject *PluginModel::indexToObject(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return nullptr;
    if (Plugin *plugin = toPlugin(index.internalPointer()))
        return plugin->modules().value(index.row(), nullptr);
    const PluginContainer::PluginEntry entry = _pluginContainer->plugins().value(index.row());
    // A file without a plug-in is still a row: its loader stands for it.
    return entry.second ? static_cast<QObject *>(entry.second) : entry.first;
}

QModelIndex PluginModel::index(int row, int column, const QModelIndex &parent) const
{
    if (row < 0 || column < 0 || column >= 2 || row >= rowCount(parent))
        return QModelIndex();
    if (!parent.isValid())
        return createIndex(row, column, nullptr);
    return createIndex(row, column, indexToObject(parent));
}

QModelIndex PluginModel::parent(const QModelIndex &index) const
{
    if (!index.isValid() || index.model() != this)
        return QModelIndex();
    return ObjectToIndex(static_cast<QObject *>(index.internalPointer()));
}

int PluginModel::rowCount(const QModelIndex &parent) const
{
    if (!parent.isValid())
        return _pluginContainer->plugins().size();
    if (parent.model() != this || parent.internalPointer())
        return 0;
    Plugin *plugin = _pluginContainer->plugins().value(parent.row()).second;
    return plugin ? plugin->modules().size() : 0;
}

int PluginModel::columnCount(const QModelIndex &) const
{
    return 2;
}

QVariant PluginModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return OvtCommonPrivate::horizontalHeader(section, orientation, role,
                                              {tr("Name"), tr("Description")});
}

QVariant PluginModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.model() != this)
        return QVariant();

    if (Plugin *parentPlugin = toPlugin(index.internalPointer())) {
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
            return QVariant();
        TreeNode *module = parentPlugin->modules().value(index.row(), nullptr);
        if (!module)
            return QVariant();
        // A module's own description sits in its third column.
        return index.column() == 0 ? QVariant(module->id()) : module->data(2, role);
    }

    const PluginContainer::PluginEntry entry = _pluginContainer->plugins().value(index.row());
    if (!entry.first)
        return QVariant();
    QPluginLoader *loader = entry.first;
    Plugin *plugin = entry.second;
    auto *record = qobject_cast<SimplePlugin *>(plugin);
    const bool failed = !plugin || (record && !record->available());
    const QString fileName = loader->fileName();

    if (index.column() == 0) {
        switch (role) {
        case Qt::DisplayRole:
            return plugin ? plugin->name() : fileName;
        case Qt::ToolTipRole:
            return fileName;
        case Qt::DecorationRole:
            if (plugin && !plugin->modules().isEmpty())
                return Ovt::themeIcon(QStringLiteral("task-complete"));
            if (failed)
                return Ovt::themeIcon(QStringLiteral("task-reject"));
            return QVariant();
        default:
            return QVariant();
        }
    }
    if (index.column() == 1) {
        if (role == Qt::ToolTipRole && record && !record->available())
            return record->errorDescription();
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return plugin ? plugin->description() : loader->errorString();
    }
    return QVariant();
}

void PluginModel::pluginContainerAboutToBeReset()
{
    beginResetModel();
}

void PluginModel::pluginContainerReset()
{
    endResetModel();
}
