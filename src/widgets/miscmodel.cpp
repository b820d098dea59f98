// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "miscmodel.h"

MiscModel::MiscModel(QObject *parent)
    : QAbstractTableModel(parent)
{ }

int MiscModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _data.size();
}

int MiscModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1;
}

bool MiscModel::inRange(const QModelIndex &index) const
{
    return index.isValid() && index.column() == 0 && index.row() < _data.size();
}

QVariant MiscModel::data(const QModelIndex &index, int role) const
{
    if (inRange(index) && (role == Qt::DisplayRole || role == Qt::ToolTipRole))
        return _data.at(index.row());
    return QVariant();
}

QVariant MiscModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr("Data");
    return QVariant();
}

Qt::ItemFlags MiscModel::flags(const QModelIndex &index) const
{
    if (!index.isValid())
        return QAbstractTableModel::flags(index);
    return Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemNeverHasChildren;
}

QList<QString> MiscModel::data() const
{
    return _data;
}

void MiscModel::setData(QList<QString> list)
{
    if (list == _data)
        return;
    beginResetModel();
    _data = list;
    endResetModel();
}

void MiscModel::clear()
{
    if (_data.isEmpty())
        return;
    beginResetModel();
    _data.clear();
    endResetModel();
}
