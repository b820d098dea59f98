// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAbstractTableModel>

class Record;

/**
 * A flat table of Record rows. The plug-in supplies the column count, the header texts and
 * the record factory as plain functions; without a factory the model cannot create rows.
 *
 * The model owns its records: rows it removes or clears are deleted. Refused inserts,
 * removals and edits return false and change nothing. A disabled model shows every cell
 * greyed and read-only.
 */
class OVTCOMMON_EXPORT RecordModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    using ColumnCountFunction = int (*)();
    using HeaderDataFunction = QVariant (*)(int section);
    using CreateRecordFunction = Record *(*)();

    RecordModel(ColumnCountFunction columnCount, HeaderDataFunction headerData,
                CreateRecordFunction createRecord, QObject *parent = nullptr);
    ~RecordModel() override;

    bool isCreatable() const;
    bool isEnabled() const;
    /** A change resets the model. */
    void setEnabled(bool enabled);

    const QList<Record *> &getRecordList() const;
    /** Resets the model, deletes the current records and takes ownership of @p records. */
    void setRecordList(const QList<Record *> &records);
    /** Resets the model and hands its records to the caller, who owns them now. */
    QList<Record *> takeRecordList();
    /** Resets the model and deletes every record. */
    void clear();
    /** Deletes every record without any model signal; only for use inside a reset. */
    void clearRecordList();
    /**
     * Inserts @p records (taking ownership) after the last record that is not empty, so that
     * blank trailing rows stay at the end.
     */
    void appendRecordList(const QList<Record *> &records);
    /** False for an empty model or when one record is not valid. */
    bool allRecordsValid() const;
    void unchange();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /** An accepted edit redraws the whole row: a record may derive other cells from it. */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /** Rows are numbered from 1. */
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool insertRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;
    /** Refuses a range that does not lie wholly inside the table. */
    bool removeRows(int row, int count, const QModelIndex &parent = QModelIndex()) override;

private:
    QList<Record *> _records;
    ColumnCountFunction _columnCount;
    HeaderDataFunction _headerData;
    CreateRecordFunction _createRecord;
    bool _enabled;
};
