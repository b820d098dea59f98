// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checkmiscmodel.h"

CheckMiscModel::CheckMiscModel(QObject *parent)
    : MiscModel(parent)
{ }

bool CheckMiscModel::isChecked(int row) const
{
    return _checks.value(row, false);
}

QVariant CheckMiscModel::data(const QModelIndex &index, int role) const
{
    if (role == Qt::CheckStateRole && inRange(index))
        return isChecked(index.row()) ? Qt::Checked : Qt::Unchecked;
    return MiscModel::data(index, role);
}

Qt::ItemFlags CheckMiscModel::flags(const QModelIndex &index) const
{
    const Qt::ItemFlags flags = MiscModel::flags(index);
    return flags ? flags | Qt::ItemIsUserCheckable : flags;
}

bool CheckMiscModel::changeCheck(const QModelIndex &index, const QVariant &value, int role)
{
    if (!inRange(index) || role != Qt::CheckStateRole)
        return false;
    const bool checked = value.toInt() == Qt::Checked;
    if (checked == isChecked(index.row()))
        return false;
    _checks[index.row()] = checked;
    const QString &item = _data.at(index.row());
    // Undoing an earlier change leaves no trace, so the sets stay the difference to the load.
    QSet<QString> &undo = checked ? _dataToRemove : _dataToAdd;
    QSet<QString> &record = checked ? _dataToAdd : _dataToRemove;
    if (!undo.remove(item))
        record.insert(item);
    return true;
}

bool CheckMiscModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!changeCheck(index, value, role))
        return false;
    Q_EMIT dataChanged(index, index, {Qt::CheckStateRole});
    return true;
}

template<typename Rule> void CheckMiscModel::load(const QList<QString> *list, Rule checked)
{
    if (!list && _data.isEmpty())
        return;
    beginResetModel();
    // The replacement resets the base as well; the views must see only this reset.
    const bool blocked = blockSignals(true);
    if (list)
        MiscModel::setData(*list);
    else
        MiscModel::clear();
    _checks.clear();
    for (const QString &item : qAsConst(_data))
        _checks << checked(item);
    _dataToAdd.clear();
    _dataToRemove.clear();
    blockSignals(blocked);
    endResetModel();
}

void CheckMiscModel::setData(QList<QString> list)
{
    load(&list, [](const QString &) { return false; });
}

void CheckMiscModel::setDataChecked(QList<QString> list, QSet<QString> checked)
{
    load(&list, [&checked](const QString &item) { return checked.contains(item); });
}

void CheckMiscModel::setDataUnchecked(QList<QString> list, QSet<QString> unchecked)
{
    load(&list, [&unchecked](const QString &item) { return !unchecked.contains(item); });
}

void CheckMiscModel::clear()
{
    load(nullptr, [](const QString &) { return false; });
}

QSet<QString> CheckMiscModel::checkedData() const
{
    QSet<QString> result;
    for (int row = 0; row < _data.size(); ++row)
        if (isChecked(row))
            result.insert(_data.at(row));
    return result;
}

QSet<QString> CheckMiscModel::uncheckedData() const
{
    QSet<QString> result;
    for (int row = 0; row < _data.size(); ++row)
        if (!isChecked(row))
            result.insert(_data.at(row));
    return result;
}

QSet<QString> CheckMiscModel::dataToAdd() const
{
    return _dataToAdd;
}

QSet<QString> CheckMiscModel::dataToRemove() const
{
    return _dataToRemove;
}
