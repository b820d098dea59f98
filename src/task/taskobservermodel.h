// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAbstractListModel>

class TaskObserver;

/**
 * The task observer's list as a three-column list model: "Task" (description, with an icon
 * from the theme by status), "Status" (status text; the edit role gives the status number,
 * Qt::UserRole the task's special flags as quint64, 0 once the row has no task) and
 * "Message".
 *
 * The model reads the observer's list directly and follows it through the observer's
 * signals. It declares no editable flags; setData() only accepts a stop request.
 */
class OVTCOMMON_EXPORT TaskObserverModel : public QAbstractListModel
{
    Q_OBJECT

public:
    TaskObserverModel(TaskObserver *observer, QObject *parent);
    ~TaskObserverModel() override;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /**
     * Asks a task to stop: accepted only for Qt::EditRole on column 1 of a row whose status
     * is Processing and whose task is still there, stoppable (flag bit 0) and not yet asked,
     * with a value converting to 4 (AboutToBeStopped). The row's status becomes 4 and
     * dataChanged() is emitted for its columns 0 to 1. Anything else returns false and
     * changes nothing.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;

public slots:
    void tasksAboutToBeInserted(int first, int last);
    void tasksInserted(int first, int last);
    /** Begins removing rows @p first to @p last exactly as the observer gives them. */
    void tasksAboutToBeRemoved(int first, int last);
    void tasksRemoved(int first, int last);
    /** Emits dataChanged() for columns 0 to 1 of @p row; column 2 is deliberately left out. */
    void taskDataChanged(int row);

private:
    bool isRowIndex(const QModelIndex &index) const;

    TaskObserver *_observer; // not owned, must outlive the model
};
