// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "configurecheckmodel.h"

ConfigureCheckModel::ConfigureCheckModel(QObject *parent)
    : CheckMiscModel(parent)
{ }

void ConfigureCheckModel::setDescriptions(const QStringList &descriptions)
{
    _descriptions = descriptions;
}

QStringList ConfigureCheckModel::descriptions() const
{
    return _descriptions;
}

void ConfigureCheckModel::setInCmpatibleModes(const QSet<int> &modes)
{
    if (modes == _inCmpatibleModes)
        return;
    beginResetModel();
    _inCmpatibleModes = modes;
    endResetModel();
}

QSet<int> ConfigureCheckModel::inCmpatibleModes() const
{
    return _inCmpatibleModes;
}

bool ConfigureCheckModel::checkCompatible(int a, int b) const
{
    const int n = _data.size();
    if (a < 0 || b < 0 || a >= n || b >= n)
        return false;
    if (a == b)
        return true;
    return !_inCmpatibleModes.contains(qMin(a, b) * n + qMax(a, b));
}

bool ConfigureCheckModel::conflictsWithChecked(int row) const
{
    for (int other = 0; other < _data.size(); ++other)
        if (isChecked(other) && !checkCompatible(row, other))
            return true;
    return false;
}

QVariant ConfigureCheckModel::data(const QModelIndex &index, int role) const
{
    if (!inRange(index))
        return QVariant();
    switch (role) {
    case Qt::UserRole:
        // A description list shorter than the items answers nothing for the rows it lacks.
        return index.row() < _descriptions.size() ? _descriptions.at(index.row()) : QVariant();
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
        return CheckMiscModel::data(index, role);
    case Qt::CheckStateRole:
        return conflictsWithChecked(index.row()) ? QVariant() : CheckMiscModel::data(index, role);
    }
    return QVariant();
}

Qt::ItemFlags ConfigureCheckModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = CheckMiscModel::flags(index);
    if (inRange(index) && conflictsWithChecked(index.row()))
        flags &= ~(Qt::ItemIsEnabled | Qt::ItemIsUserCheckable);
    return flags;
}

bool ConfigureCheckModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    // Views cannot check a greyed-out row (its flags say so); code that sets a check state
    // directly is trusted, as with the plain check list.
    if (!changeCheck(index, value, role))
        return false;
    Q_EMIT dataChanged(this->index(0, 0), this->index(rowCount() - 1, 0));
    return true;
}
