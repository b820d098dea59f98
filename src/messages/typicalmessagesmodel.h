// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAbstractItemModel>
#include <QPointer>

class TypicalMessage;
class TypicalMessages;
class Plugin;

/**
 * The registered typical messages as a flat list, one row per message, kept in step with the
 * registry. Column IsSkipedColumn is user-checkable: ticking it skips the message (and stores
 * that in the settings), unticking shows it again.
 */
class OVTCOMMON_EXPORT TypicalMessagesModel : public QAbstractItemModel
{
    Q_OBJECT

public:
    enum Columns { DescriptionColumn, IsSkipedColumn, PluginColumn };
    Q_ENUM(Columns)

    explicit TypicalMessagesModel(QObject *parent = nullptr);

    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &child) const override;
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

    /** The message of @p index, or null. */
    TypicalMessage *message(const QModelIndex &index) const;

private:
    void onAdded(TypicalMessage *message);
    void onRemoved(TypicalMessage *message);
    void onPluginsChanged(TypicalMessage *message);
    void onSkipStateChanged(TypicalMessage *message);
    void onRegistryDestroyed();
    void cellChanged(TypicalMessage *message, int column);

    QList<TypicalMessage *> _messages; // owned by the registry
};
