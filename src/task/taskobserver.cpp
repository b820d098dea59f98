// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/taskobserver.h"

#include "task/abstracttask.h"
#include "task/blockdialog.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "task/taskperformedevent.h"
#include "task/thread.h"
#include "task/tsan_p.h"

#include <QCoreApplication>
#include <QMutex>
#include <QThread>
#include <QTimer>
#include <QVector>
#include <QWidget>

TaskObserver *TaskObserver::_instance = nullptr;

namespace {

// Workers post completions to _instance while the user-interface thread may create or destroy
// the observer: the pointer changes, and is used for posting, only under this lock.
QMutex instanceMutex;

// Addresses of tasks the pool deleted unrun that the observer has not settled yet; under
// instanceMutex. Never dereferenced: the tasks are gone.
QVector<const AbstractTask *> unrunTasks;

} // namespace

TaskObserver *TaskObserver::instance(QObject *parent)
{
    if (!_instance) {
        // Completions are posted to the observer: it must live on the user-interface thread.
        Q_ASSERT(!QCoreApplication::instance()
                 || QThread::currentThread() == QCoreApplication::instance()->thread());
        new TaskObserver(parent);
    }
    return _instance;
}

TaskObserver::TaskObserver(QObject *parent)
    : QObject(parent)
    , _runningCount(0)
    , _problemCount(0)
    , _timer(new QTimer(this))
    , _model(nullptr)
    , _blockDialog(nullptr)
    , _dialog(nullptr)
{
    {
        Tsan::MutexLocker locker(&instanceMutex);
        _instance = this;
    }

    _timer->setObjectName(QStringLiteral("_timer"));
    _timer->setSingleShot(true);
    _timer->setInterval(_delay);
    connect(_timer, &QTimer::timeout, this, &TaskObserver::openTaskObserveDialog);

    _model = new TaskObserverModel(this, this);

    QWidget *parentWidget
        = parent && parent->isWidgetType() ? static_cast<QWidget *>(parent) : nullptr;
    _blockDialog = new BlockDialog(parentWidget);
    _dialog = new TaskObserverDialog(this, parentWidget);
    connect(_dialog, &QDialog::rejected, this, &TaskObserver::clearTasks);
}

TaskObserver::~TaskObserver()
{
    {
        // From here on a finishing task finds no observer instead of a dying one.
        Tsan::MutexLocker locker(&instanceMutex);
        if (_instance == this)
            _instance = nullptr;
        unrunTasks.clear();
    }
    // The dialog's view uses the model, a child of ours: the dialog goes first.
    delete _dialog;
    delete _blockDialog;
}

bool TaskObserver::postTaskPerformed(AbstractTask *task)
{
    // Never instance(): an observer created here would live on a worker thread.
    Tsan::MutexLocker locker(&instanceMutex);
    if (!_instance)
        return false;
    auto *event = new TaskPerformedEvent(task);
    // The event is the hand-over: everything run() wrote into the task (and the event itself)
    // belongs to the user-interface thread once it is posted.
    Tsan::release(task);
    Tsan::release(event);
    QCoreApplication::postEvent(_instance, event, Qt::NormalEventPriority);
    return true;
}

void TaskObserver::taskDeletedUnrun(const AbstractTask *task)
{
    Tsan::MutexLocker locker(&instanceMutex);
    if (!_instance)
        return;
    // One wake-up for a run of addresses: a completion event without a task, which does
    // nothing but let event() settle them.
    const bool wake = unrunTasks.isEmpty();
    unrunTasks.append(task);
    if (wake) {
        auto *event = new TaskPerformedEvent(nullptr);
        Tsan::release(event);
        QCoreApplication::postEvent(_instance, event, Qt::NormalEventPriority);
    }
}

void TaskObserver::settleUnrunTasks()
{
    QVector<const AbstractTask *> unrun;
    {
        Tsan::MutexLocker locker(&instanceMutex);
        unrun.swap(unrunTasks);
    }
    for (const AbstractTask *task : qAsConst(unrun)) {
        const auto found = _taskRows.constFind(const_cast<AbstractTask *>(task));
        if (found == _taskRows.constEnd() || found.value() == -1
            || _tasks.at(found.value()).task != task)
            continue;
        failUnrun(found.value(), tr("The task was not run: the worker pool stopped."));
        endBatchIfIdle(task);
    }
}

void TaskObserver::failUnrun(int row, const QString &message)
{
    TaskEntry &entry = _tasks[row];
    entry.task = nullptr;
    entry.description.setStatus(TaskDescription::Fail);
    entry.description.setMessage(message);
    emit taskDataChanged(row);
    ++_problemCount;
    --_runningCount;
}

AbstractTask *TaskObserver::taskOfRow(int row) const
{
    AbstractTask *task = _tasks.at(row).task;
    if (!task)
        return nullptr;
    // Deleted by a stopping pool and not yet settled: the row must not reach it.
    Tsan::MutexLocker locker(&instanceMutex);
    return unrunTasks.contains(task) ? nullptr : task;
}

void TaskObserver::performTask(AbstractTask *task)
{
    if (!task)
        return;
    // First let go of tasks deleted unrun: a new task may sit at one's address.
    settleUnrunTasks();
    // A listed task whose entry has let go of it has finished and been deleted: what comes
    // now is a new task that the allocator placed at the same address.
    const auto listed = _taskRows.constFind(task);
    if (listed != _taskRows.constEnd() && _tasks.at(listed.value()).task == task)
        return;
    if (task->taskAboutToBeStopped())
        return;

    if (_runningCount == 0) {
        _dialog->blockCloseButton();
        if (!_dialog->isVisible()) {
            if (_timer->interval() != 0) {
                _blockDialog->open();
                _timer->start();
            } else {
                openTaskObserveDialog();
            }
        }
    }

    const int row = _tasks.size();
    emit tasksAboutToBeInserted(row, row);
    ++_runningCount;
    _taskRows.insert(task, row);
    _tasks.append(TaskEntry {task->taskDescription(), task});
    emit tasksInserted(row, row);

    QString refusal;
    switch (Thread::putTask(task)) {
    case Thread::Queued:
        return;
    case Thread::QueueFull:
        refusal = tr("The task was not run: the task queue is full.");
        break;
    case Thread::Stopping:
        refusal = tr("The task was not run: the worker pool stopped.");
        break;
    default:
        refusal = tr("The task was not run: no worker threads have been started.");
        break;
    }
    failUnrun(row, refusal);
    delete task;
    endBatchIfIdle(task);
}

TaskObserverModel *TaskObserver::model() const
{
    return _model;
}

bool TaskObserver::event(QEvent *e)
{
    // Completion events are built on a worker thread; what it wrote is ours from here on.
    Tsan::acquire(e);
    if (e->type() == static_cast<QEvent::Type>(TaskPerformedEvent::Type)) {
        settleUnrunTasks();
        auto *performed = static_cast<TaskPerformedEvent *>(e);
        if (performed->task())
            Tsan::acquire(performed->task());
        taskPerformedEvent(performed);
        return true;
    }
    return QObject::event(e);
}

void TaskObserver::taskPerformedEvent(TaskPerformedEvent *e)
{
    if (!e)
        return;
    AbstractTask *task = e->task();
    if (!task)
        return;

    // A key whose row has let go of its task is a finished task's: not this one.
    const auto found = _taskRows.constFind(task);
    if (found != _taskRows.constEnd() && found.value() != -1
        && _tasks.at(found.value()).task == task) {
        const int row = found.value();
        TaskEntry &entry = _tasks[row];
        entry.description = task->taskDescription();
        emit taskDataChanged(row);

        switch (entry.description.status()) {
        case TaskDescription::Success:
            --_runningCount;
            break;
        case TaskDescription::Fail:
        case TaskDescription::Warning:
            ++_problemCount;
            --_runningCount;
            break;
        default:
            break;
        }

        // The task is deleted below: its row lets go of it at once, so that nothing reads the
        // flags of a deleted task. Its key stays in the map until the batch is cleared.
        entry.task = nullptr;
    }

    // Also after a completion that is not in the list: one left over from a batch cleared while
    // it ran still brings the observer back to idle, its block dialog and timer included.
    endBatchIfIdle(task);

    task->afterRun();
    delete task;
}

void TaskObserver::endBatchIfIdle(const AbstractTask *task)
{
    if (_runningCount != 0)
        return;
    _dialog->unblockCloseButton();
    if (_timer->isActive()) {
        _blockDialog->reject();
        _timer->stop();
    }
    _taskRows.remove(const_cast<AbstractTask *>(task));
    if (_dialog->isVisible()) {
        // Closing the dialog clears the batch through its rejected() signal.
        if (_problemCount == 0)
            _dialog->reject();
    } else {
        if (_problemCount != 0)
            _dialog->open();
        else
            clearTasks();
    }
}

void TaskObserver::openTaskObserveDialog()
{
    _blockDialog->reject();
    _dialog->open();
}

void TaskObserver::clearTasks()
{
    // Both arguments are the list length, not the first and last row: tools built on these
    // signals depend on that pair, so it stays.
    const int n = _tasks.size();
    emit tasksAboutToBeRemoved(n, n);
    _runningCount = 0;
    _problemCount = 0;
    _taskRows.clear();
    _tasks.clear();
    emit tasksRemoved(n, n);
}
