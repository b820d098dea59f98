// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAbstractTableModel>
#include <QStringList>

/** A flat list of strings as a one-column table, with the header "Data". */
class OVTCOMMON_EXPORT MiscModel : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit MiscModel(QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    /** The row's string for the display and tool-tip roles. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    using QAbstractTableModel::setData;

    QList<QString> data() const;
    /** Resets the model around the replacement; an equal list changes nothing. */
    virtual void setData(QList<QString> list);
    /** Resets the model around emptying it; an empty model stays quiet. */
    virtual void clear();

protected:
    bool inRange(const QModelIndex &index) const;

    QList<QString> _data;
};
