// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "task/taskdescription.h"

#include <QHash>
#include <QObject>
#include <QVector>

class AbstractTask;
class BlockDialog;
class QTimer;
class TaskObserverDialog;
class TaskObserverModel;
class TaskPerformedEvent;

/**
 * The process-wide entry point for running tasks.
 *
 * performTask() lists a task in the current batch and puts it into the worker queue
 * (Thread::put()). Completions arrive on the user-interface thread as TaskPerformedEvent;
 * the observer copies the task's description into its list, calls afterRun() and deletes the
 * task. The first task of a batch blocks input with an invisible modal BlockDialog; if the
 * batch is still running after _delay milliseconds (the single-shot timer, a child QTimer
 * named "_timer"), the TaskObserverDialog replaces it. A batch without failures or warnings
 * closes the dialog and clears the list when it ends; otherwise the dialog stays open until
 * the user closes it, which clears the list.
 *
 * Everything here runs on the user-interface thread.
 */
class OVTCOMMON_EXPORT TaskObserver : public QObject
{
    Q_OBJECT

public:
    /** The grace period in milliseconds before the task observer dialog is shown. */
    static const int _delay = 1000;

    /**
     * Returns the single observer, creating it on the first call (on the user-interface
     * thread) with @p parent as its QObject parent. A widget parent also becomes the parent
     * widget of both dialogs; otherwise they are top-level windows. Later calls ignore
     * @p parent.
     */
    static TaskObserver *instance(QObject *parent = nullptr);

    /**
     * Deletes both dialogs. Tasks still in flight are not deleted by the observer; a task that
     * completes after it is gone is deleted by its worker without afterRun().
     */
    ~TaskObserver() override;

    /**
     * Takes ownership of @p task, lists it (tasksAboutToBeInserted(), tasksInserted()) and
     * puts it into the worker queue. A null task, a task already in the batch and a task
     * already asked to stop are ignored. A task the queue refuses (no worker started, 64
     * tasks waiting, the pool stopping) is deleted at once without run() or afterRun(); its
     * row shows Fail with a message saying why and counts as completed, so the batch ends and
     * the dialog can be closed.
     *
     * The same holds for a task the pool deletes unrun when it stops: the observer learns its
     * address only, never reads the task, and fails its row.
     */
    void performTask(AbstractTask *task);

    /** The list of the current batch as an item model; owned by the observer. */
    TaskObserverModel *model() const;

    /** Hands events of type 1002 to taskPerformedEvent(). */
    bool event(QEvent *e) override;

public slots:
    /** Replaces the block dialog by the task observer dialog. */
    void openTaskObserveDialog();

    /**
     * Empties the list and resets the counts. Emits tasksAboutToBeRemoved(n, n) and
     * tasksRemoved(n, n) where n is the length of the list: both arguments are the length,
     * not the first and last rows.
     */
    void clearTasks();

signals:
    void tasksAboutToBeInserted(int first, int last);
    void tasksInserted(int first, int last);
    void tasksAboutToBeRemoved(int first, int last);
    void tasksRemoved(int first, int last);
    void taskDataChanged(int row);

protected:
    /**
     * Finishes one task: updates its row and the counts, ends the batch when no task is left
     * running (also after a task that is not in the list, such as one of a batch cleared
     * while it ran), then calls afterRun() and deletes the task.
     */
    virtual void taskPerformedEvent(TaskPerformedEvent *e);

private:
    explicit TaskObserver(QObject *parent);
    Q_DISABLE_COPY(TaskObserver)

    friend class TaskObserverModel;
    friend class AbstractTask;
    friend class Thread;

    /**
     * Posts the completion of @p task to the observer; called on a worker thread. Returns
     * false when there is no observer (never created, or already destroyed).
     */
    static bool postTaskPerformed(AbstractTask *task);

    /**
     * Notes that the pool deletes @p task without running it; called on a worker thread just
     * before the deletion. The address is never dereferenced.
     */
    static void taskDeletedUnrun(const AbstractTask *task);

    /** Fails the rows of tasks the pool deleted unrun; each counts as completed. */
    void settleUnrunTasks();
    /** Fails @p row whose task never ran, lets go of the task and counts it completed. */
    void failUnrun(int row, const QString &message);
    /** Ends the batch once no task runs any more; @p task is the last one's address. */
    void endBatchIfIdle(const AbstractTask *task);
    /** The task of @p row, or null once it is finished or deleted unrun. */
    AbstractTask *taskOfRow(int row) const;

    struct TaskEntry
    {
        TaskDescription description;
        AbstractTask *task; // not owned; null once the task is finished
    };

    int _runningCount;
    int _problemCount;
    QHash<AbstractTask *, int> _taskRows;
    QVector<TaskEntry> _tasks;
    QTimer *_timer;
    TaskObserverModel *_model;
    BlockDialog *_blockDialog; // owned
    TaskObserverDialog *_dialog; // owned

    static TaskObserver *_instance;
};
