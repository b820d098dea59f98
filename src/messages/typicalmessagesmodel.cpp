// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "typicalmessagesmodel.h"

#include "messages/typicalmessage.h"
#include "messages/typicalmessages.h"

#include <QMetaEnum>

TypicalMessagesModel::TypicalMessagesModel(QObject *parent)
    : QAbstractItemModel(parent)
{
    TypicalMessages *registry = TypicalMessages::instance();
    _messages = registry->listMessages();
    connect(registry, &TypicalMessages::added, this, &TypicalMessagesModel::onAdded);
    connect(registry, &TypicalMessages::removed, this, &TypicalMessagesModel::onRemoved);
    connect(registry, &TypicalMessages::registered, this, &TypicalMessagesModel::onPluginsChanged);
    connect(registry, &TypicalMessages::unregistered, this,
            &TypicalMessagesModel::onPluginsChanged);
    connect(registry, &TypicalMessages::skipStateChanged, this,
            &TypicalMessagesModel::onSkipStateChanged);
    connect(registry, &QObject::destroyed, this, &TypicalMessagesModel::onRegistryDestroyed);
}

QModelIndex TypicalMessagesModel::index(int row, int column, const QModelIndex &parent) const
{
    return hasIndex(row, column, parent) ? createIndex(row, column) : QModelIndex();
}

QModelIndex TypicalMessagesModel::parent(const QModelIndex &) const
{
    return QModelIndex();
}

int TypicalMessagesModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _messages.size();
}

int TypicalMessagesModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : QMetaEnum::fromType<Columns>().keyCount();
}

QVariant TypicalMessagesModel::data(const QModelIndex &index, int role) const
{
    const TypicalMessage *message = this->message(index);
    if (!message)
        return QVariant();
    if (role == Qt::DisplayRole && index.column() == DescriptionColumn)
        return message->description();
    if (role == Qt::DisplayRole && index.column() == PluginColumn)
        return message->pluginNames().join(QStringLiteral(", "));
    if (role == Qt::CheckStateRole && index.column() == IsSkipedColumn)
        return message->isSkip() ? Qt::Checked : Qt::Unchecked;
    return QVariant();
}

QVariant TypicalMessagesModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return QVariant();
    switch (section) {
    case DescriptionColumn:
        return tr("Message description");
    case IsSkipedColumn:
        return tr("Is skiped");
    case PluginColumn:
        return tr("From plugin(s)");
    }
    return QVariant();
}

Qt::ItemFlags TypicalMessagesModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (index.isValid() && index.column() == IsSkipedColumn)
        flags |= Qt::ItemIsUserCheckable;
    return flags;
}

bool TypicalMessagesModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    TypicalMessage *message = this->message(index);
    if (!message || role != Qt::CheckStateRole || index.column() != IsSkipedColumn)
        return false;
    message->setSkip(value.toInt() == Qt::Checked);
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

TypicalMessage *TypicalMessagesModel::message(const QModelIndex &index) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid))
        return nullptr;
    return _messages.value(index.row());
}

void TypicalMessagesModel::onAdded(TypicalMessage *message)
{
    beginInsertRows(QModelIndex(), _messages.size(), _messages.size());
    _messages << message;
    endInsertRows();
}

void TypicalMessagesModel::onRemoved(TypicalMessage *message)
{
    const int row = _messages.indexOf(message);
    if (row < 0)
        return;
    beginRemoveRows(QModelIndex(), row, row);
    _messages.removeAt(row);
    endRemoveRows();
}

void TypicalMessagesModel::onPluginsChanged(TypicalMessage *message)
{
    cellChanged(message, PluginColumn);
}

void TypicalMessagesModel::onSkipStateChanged(TypicalMessage *message)
{
    cellChanged(message, IsSkipedColumn);
}

void TypicalMessagesModel::onRegistryDestroyed()
{
    beginResetModel();
    _messages.clear();
    endResetModel();
}

void TypicalMessagesModel::cellChanged(TypicalMessage *message, int column)
{
    const int row = _messages.indexOf(message);
    if (row >= 0)
        Q_EMIT dataChanged(index(row, column), index(row, column));
}
