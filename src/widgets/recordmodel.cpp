// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "recordmodel.h"

#include "widgets/record.h"

#include <algorithm>
#include <utility>

RecordModel::RecordModel(ColumnCountFunction columnCount, HeaderDataFunction headerData,
                         CreateRecordFunction createRecord, QObject *parent)
    : QAbstractTableModel(parent)
    , _columnCount(columnCount)
    , _headerData(headerData)
    , _createRecord(createRecord)
    , _enabled(true)
{ }

RecordModel::~RecordModel()
{
    qDeleteAll(_records);
}

bool RecordModel::isCreatable() const
{
    return _createRecord;
}

bool RecordModel::isEnabled() const
{
    return _enabled;
}

void RecordModel::setEnabled(bool enabled)
{
    if (enabled == _enabled)
        return;
    beginResetModel();
    _enabled = enabled;
    endResetModel();
}

const QList<Record *> &RecordModel::getRecordList() const
{
    return _records;
}

void RecordModel::setRecordList(const QList<Record *> &records)
{
    beginResetModel();
    clearRecordList();
    _records = records;
    endResetModel();
}

QList<Record *> RecordModel::takeRecordList()
{
    beginResetModel();
    const QList<Record *> records = std::exchange(_records, {});
    endResetModel();
    return records;
}

void RecordModel::clear()
{
    beginResetModel();
    clearRecordList();
    endResetModel();
}

void RecordModel::clearRecordList()
{
    qDeleteAll(std::exchange(_records, {}));
}

void RecordModel::appendRecordList(const QList<Record *> &records)
{
    if (records.isEmpty())
        return;
    int position = _records.size();
    while (position > 0 && _records.at(position - 1)->isEmpty())
        --position;
    beginInsertRows(QModelIndex(), position, position + records.size() - 1);
    for (int i = 0; i < records.size(); ++i)
        _records.insert(position + i, records.at(i));
    endInsertRows();
}

bool RecordModel::allRecordsValid() const
{
    if (_records.isEmpty())
        return false;
    return std::all_of(_records.cbegin(), _records.cend(),
                       [](const Record *record) { return record->isValid(); });
}

void RecordModel::unchange()
{
    for (Record *record : qAsConst(_records))
        record->unchange();
}

int RecordModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _records.size();
}

int RecordModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() || !_columnCount ? 0 : _columnCount();
}

QVariant RecordModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid() || index.row() >= _records.size())
        return QVariant();
    return _records.at(index.row())->data(index.column(), role);
}

bool RecordModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!index.isValid() || role != Qt::EditRole || index.row() >= _records.size())
        return false;
    if (!_records.at(index.row())->setData(index.column(), value))
        return false;
    Q_EMIT dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    return true;
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (role != Qt::DisplayRole)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (orientation == Qt::Vertical)
        return section + 1;
    return _headerData ? _headerData(section) : QVariant();
}

Qt::ItemFlags RecordModel::flags(const QModelIndex &index) const
{
    Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    if (!_enabled || !index.isValid() || index.row() >= _records.size())
        return flags & ~Qt::ItemIsEnabled;
    if (_records.at(index.row())->isEditable(index.column()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool RecordModel::insertRows(int row, int count, const QModelIndex &parent)
{
    if (!_createRecord || parent.isValid() || count < 1 || row < 0 || row > _records.size())
        return false;
    beginInsertRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        _records.insert(row + i, _createRecord());
    endInsertRows();
    return true;
}

bool RecordModel::removeRows(int row, int count, const QModelIndex &parent)
{
    if (parent.isValid() || count < 1 || row < 0 || row + count > _records.size())
        return false;
    beginRemoveRows(parent, row, row + count - 1);
    for (int i = 0; i < count; ++i)
        delete _records.takeAt(row);
    endRemoveRows();
    return true;
}
