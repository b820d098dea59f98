// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/taskobservermodel.h"

#include "ovticon_p.h"
#include "task/abstracttask.h"
#include "task/taskobserver.h"
#include "treenode/horizontalheader_p.h"

#include <QIcon>

namespace {

constexpr int columns = 3;

} // namespace

TaskObserverModel::TaskObserverModel(TaskObserver *observer, QObject *parent)
    : QAbstractListModel(parent)
    , _observer(observer)
{
    Q_ASSERT(observer);
    connect(observer, &TaskObserver::tasksAboutToBeInserted, this,
            &TaskObserverModel::tasksAboutToBeInserted);
    connect(observer, &TaskObserver::tasksInserted, this, &TaskObserverModel::tasksInserted);
    connect(observer, &TaskObserver::tasksAboutToBeRemoved, this,
            &TaskObserverModel::tasksAboutToBeRemoved);
    connect(observer, &TaskObserver::tasksRemoved, this, &TaskObserverModel::tasksRemoved);
    connect(observer, &TaskObserver::taskDataChanged, this, &TaskObserverModel::taskDataChanged);
}

TaskObserverModel::~TaskObserverModel() = default;

int TaskObserverModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : _observer->_tasks.size();
}

int TaskObserverModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : columns;
}

bool TaskObserverModel::isRowIndex(const QModelIndex &index) const
{
    // Rows are checked against the list too: after clearTasks() views may still hold
    // persistent indexes of rows that are gone.
    return index.isValid() && index.model() == this && index.row() < _observer->_tasks.size()
        && index.column() < columns;
}

QVariant TaskObserverModel::data(const QModelIndex &index, int role) const
{
    if (!isRowIndex(index))
        return QVariant();
    const TaskObserver::TaskEntry &entry = _observer->_tasks.at(index.row());
    const int status = entry.description.status();
    // A status the library does not know says nothing a view could show: every role is empty.
    if (status < TaskDescription::Processing || status > TaskDescription::AboutToBeStopped)
        return QVariant();

    switch (index.column()) {
    case 0:
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return entry.description.description();
        if (role == Qt::DecorationRole) {
            static const char *const iconNames[] = {"task-ongoing", "task-reject", "task-complete",
                                                    "task-attention", "task-attention"};
            return Ovt::themeIcon(QLatin1String(iconNames[status]));
        }
        break;
    case 1:
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole) {
            switch (status) {
            case TaskDescription::Processing:
                return tr("processing");
            case TaskDescription::Fail:
                return tr("fail");
            case TaskDescription::Success:
                return tr("success");
            case TaskDescription::Warning:
                return tr("warning");
            default:
                return tr("about to be stop");
            }
        }
        if (role == Qt::EditRole)
            return status;
        if (role == Qt::UserRole) {
            const AbstractTask *task = _observer->taskOfRow(index.row());
            return QVariant::fromValue<quint64>(task ? task->taskSpecialFlags() : 0);
        }
        break;
    case 2:
        if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
            return entry.description.message();
        break;
    }
    return QVariant();
}

QVariant TaskObserverModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return OvtCommonPrivate::horizontalHeader(section, orientation, role,
                                              {tr("Task"), tr("Status"), tr("Message")});
}

bool TaskObserverModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (role != Qt::EditRole || !isRowIndex(index) || index.column() != 1)
        return false;
    bool isNumber = false;
    if (value.toInt(&isNumber) != TaskDescription::AboutToBeStopped || !isNumber)
        return false;

    TaskObserver::TaskEntry &entry = _observer->_tasks[index.row()];
    AbstractTask *task = _observer->taskOfRow(index.row());
    // setTaskAboutToBeStopped() itself refuses a task that cannot be stopped.
    if (entry.description.status() != TaskDescription::Processing || !task
        || task->taskAboutToBeStopped() || !task->setTaskAboutToBeStopped())
        return false;

    entry.description.setStatus(TaskDescription::AboutToBeStopped);
    emit dataChanged(this->index(index.row(), 0), this->index(index.row(), 1));
    return true;
}

void TaskObserverModel::tasksAboutToBeInserted(int first, int last)
{
    beginInsertRows(QModelIndex(), first, last);
}

void TaskObserverModel::tasksInserted(int first, int last)
{
    Q_UNUSED(first)
    Q_UNUSED(last)
    endInsertRows();
}

void TaskObserverModel::tasksAboutToBeRemoved(int first, int last)
{
    beginRemoveRows(QModelIndex(), first, last);
}

void TaskObserverModel::tasksRemoved(int first, int last)
{
    Q_UNUSED(first)
    Q_UNUSED(last)
    endRemoveRows();
    // The observer clears its whole list but announces the rows (n, n), so Qt kept the
    // persistent indexes of the rows really removed (a view's current, pressed or selected
    // row). They now point past the end; invalidate them as a removal of those rows would
    // have, or the next insertion would move them onto rows of the next batch.
    const int rows = rowCount();
    QModelIndexList stale;
    QModelIndexList gone;
    const QModelIndexList persistent = persistentIndexList();
    for (const QModelIndex &index : persistent) {
        if (index.row() >= rows) {
            stale.append(index);
            gone.append(QModelIndex());
        }
    }
    if (!stale.isEmpty())
        changePersistentIndexList(stale, gone);
}

void TaskObserverModel::taskDataChanged(int row)
{
    emit dataChanged(index(row, 0), index(row, 1));
}
