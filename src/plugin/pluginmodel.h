// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAbstractItemModel>

class PluginContainer;

/**
 * The two-level list behind the plug-in dialog: top-level rows are the container's plug-in
 * records in loading order, their children the plug-in's modules. Columns "Name" and
 * "Description". Follows the container's resets.
 *
 * Like the tree node model, a plug-in row answers its modules under every column.
 */
class OVTCOMMON_EXPORT PluginModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    /** @p pluginContainer is not owned and must outlive the model. */
    PluginModel(PluginContainer *pluginContainer, QObject *parent = nullptr);
    ~PluginModel() override;

    /** The row of a plug-in record, a loader or a module, column 0; invalid for anything else. */
    QModelIndex ObjectToIndex(QObject *object) const;
    /** The plug-in record or module of @p index; the loader for a file without a plug-in. */
    QObject *indexToObject(const QModelIndex &index) const;

    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

public Q_SLOTS:
    void pluginContainerAboutToBeReset();
    void pluginContainerReset();

private:
    PluginContainer *_pluginContainer; // not owned
};
