// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QAtomicInt>
#include <QMutex>
#include <QSemaphore>
#include <QThread>

class AbstractTask;

/**
 * One worker of the process-wide task pool.
 *
 * The queue is static and shared by every Thread: a circular buffer of 64 waiting tasks,
 * bounded by two semaphores. The application creates and starts as many Thread objects as it
 * wants (each start() adds one worker) and destroys them at exit; the library never creates
 * one. The queue comes to life when the first worker starts; until then put() refuses tasks.
 *
 * Destroying any Thread while the pool has workers stops the whole pool: every worker leaves
 * its loop, and the tasks still waiting are deleted without run() or afterRun(). Once the
 * last worker has left, the queue is back in its initial state, so a later set of started
 * Thread objects forms a new pool. Destroy all Thread objects of one pool before starting the
 * next: destroying a Thread always stops the pool that is running at that moment.
 */
class OVTCOMMON_EXPORT Thread : public QThread
{
    Q_OBJECT

public:
    explicit Thread(QObject *parent = nullptr);
    /** Stops the pool (see the class description) and waits for this worker without limit. */
    ~Thread() override;

    /**
     * Puts @p task at the rear of the queue. Safe from any thread, several at once: every task
     * accepted is run once (or, when the pool stops first, deleted unrun). Returns false, and
     * the task stays with the caller, for a null task, when no worker has started yet, when
     * the pool is stopping, and when 64 tasks are already waiting. Never waits for a free
     * slot, only briefly for the queue's lock.
     */
    static bool put(AbstractTask *task);

protected:
    /**
     * Takes tasks from the queue and runs them. An exception thrown out of a task's run() is
     * caught here: the task then fails with the exception's text and is completed like any
     * other, once. When the pool stops, worker 0 deletes the tasks still waiting and tells the
     * task observer their addresses.
     */
    void run() override;

private:
    friend class TaskObserver;

    /** Why put() refused a task, for the task observer to say. */
    enum PutResult { Queued, NullTask, NoWorker, Stopping, QueueFull };
    static PutResult putTask(AbstractTask *task);

    static AbstractTask *_buffer[64];
    static int _frontBound;
    static int _rearBound;
    static QSemaphore _emptyBuffer;
    static QSemaphore _fullBuffer;
    static QMutex _frontBoundMutex;
    static QAtomicInt _threadsCount;
    static bool _stopThread;

    int _index;
};
