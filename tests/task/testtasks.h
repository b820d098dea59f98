#pragma once

// Test tasks and helpers shared by the task tests.

#include "task/abstracttask.h"
#include "task/thread.h"

#include <QAbstractItemModelTester>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QElapsedTimer>
#include <QList>
#include <QPointer>
#include <QSemaphore>
#include <QTest>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <memory>

/**
 * Counts, per task id, how often each task ran, got afterRun() and was deleted, and how often
 * any of that happened on the wrong thread. Atomics: runs and deletions of queued tasks happen
 * on workers.
 */
class TaskLedger
{
public:
    explicit TaskLedger(int size)
        : _size(size)
        , _runs(new std::atomic<int>[size])
        , _afterRuns(new std::atomic<int>[size])
        , _deletions(new std::atomic<int>[size])
    {
        for (int i = 0; i < size; ++i) {
            _runs[i] = 0;
            _afterRuns[i] = 0;
            _deletions[i] = 0;
        }
    }

    int size() const { return _size; }
    int runs(int id) const { return _runs[id]; }
    int afterRuns(int id) const { return _afterRuns[id]; }
    int deletions(int id) const { return _deletions[id]; }
    int totalRuns() const { return _totalRuns; }
    int totalAfterRuns() const { return _totalAfterRuns; }
    int totalDeletions() const { return _totalDeletions; }
    int runsOnUiThread() const { return _runsOnUiThread; }
    int afterRunsOffUiThread() const { return _afterRunsOffUiThread; }

    void ran(int id)
    {
        if (QThread::currentThread() == QCoreApplication::instance()->thread())
            ++_runsOnUiThread;
        ++_runs[id];
        ++_totalRuns;
    }
    void afterRan(int id)
    {
        if (QThread::currentThread() != QCoreApplication::instance()->thread())
            ++_afterRunsOffUiThread;
        ++_afterRuns[id];
        ++_totalAfterRuns;
    }
    void deleted(int id)
    {
        ++_deletions[id];
        ++_totalDeletions;
    }

    /** Forgets the deletion of a task that never went anywhere, so its id can be reused. */
    void forget(int id)
    {
        --_deletions[id];
        --_totalDeletions;
    }

    /** Empty string when ids [first, last) each ran, finished and were deleted once. */
    QByteArray checkCompleted(int first, int last) const
    {
        for (int id = first; id < last; ++id) {
            if (_runs[id] != 1 || _afterRuns[id] != 1 || _deletions[id] != 1)
                return QByteArray("task ") + QByteArray::number(id) + " ran "
                    + QByteArray::number(_runs[id]) + ", afterRun "
                    + QByteArray::number(_afterRuns[id]) + ", deleted "
                    + QByteArray::number(_deletions[id]);
        }
        return QByteArray();
    }

private:
    int _size;
    std::unique_ptr<std::atomic<int>[]> _runs;
    std::unique_ptr<std::atomic<int>[]> _afterRuns;
    std::unique_ptr<std::atomic<int>[]> _deletions;
    std::atomic<int> _totalRuns {0};
    std::atomic<int> _totalAfterRuns {0};
    std::atomic<int> _totalDeletions {0};
    std::atomic<int> _runsOnUiThread {0};
    std::atomic<int> _afterRunsOffUiThread {0};
};

/** A task that reports to a ledger and finishes with a given status and message. */
class LedgerTask : public AbstractTask
{
public:
    LedgerTask(TaskLedger *ledger, int id, const QString &title = QString(),
               TaskDescription::TaskStatus outcome = TaskDescription::Success,
               const QString &message = QString(), quint64 flags = 0, int spinMicroseconds = 0)
        : AbstractTask(nullptr)
        , _ledger(ledger)
        , _id(id)
        , _outcome(outcome)
        , _outcomeMessage(message)
        , _spinMicroseconds(spinMicroseconds)
    {
        _taskSpecialFlags = flags;
        _taskDescription.setDescription(title.isEmpty() ? QString::number(id) : title);
    }
    ~LedgerTask() override { _ledger->deleted(_id); }

    void run() override
    {
        _ledger->ran(_id);
        if (_spinMicroseconds > 0) {
            QElapsedTimer timer;
            timer.start();
            while (timer.nsecsElapsed() < qint64(_spinMicroseconds) * 1000) { }
        }
        work();
        _taskDescription.setStatus(_outcome);
        _taskDescription.setMessage(_outcomeMessage);
        AbstractTask::run();
    }
    void afterRun() override { _ledger->afterRan(_id); }

    int id() const { return _id; }

protected:
    virtual void work() { }

    TaskLedger *_ledger; // not owned
    int _id;
    TaskDescription::TaskStatus _outcome;
    QString _outcomeMessage;
    int _spinMicroseconds;
};

/**
 * Opens a set of tasks that wait in run(): started counts the tasks that began waiting, open
 * lets one waiting task go on per release.
 */
struct Gate
{
    QSemaphore started;
    QSemaphore open;
};

/** A ledger task that waits at a gate in run() before finishing. */
class GateTask : public LedgerTask
{
public:
    GateTask(TaskLedger *ledger, int id, Gate *gate, const QString &title = QString(),
             TaskDescription::TaskStatus outcome = TaskDescription::Success,
             const QString &message = QString(), quint64 flags = 0)
        : LedgerTask(ledger, id, title, outcome, message, flags)
        , _gate(gate)
    { }

protected:
    void work() override
    {
        _gate->started.release();
        _gate->open.acquire();
    }

    Gate *_gate; // not owned, outlives the task
};

/**
 * A stoppable task (flag bit 0) that waits at a gate, polling the stop request; asked to
 * stop, it fails with "Terminate by user".
 */
class StoppableTask : public GateTask
{
public:
    StoppableTask(TaskLedger *ledger, int id, Gate *gate, const QString &title = QString())
        : GateTask(ledger, id, gate, title, TaskDescription::Success, QString(), 1)
    { }

protected:
    void work() override
    {
        _gate->started.release();
        for (;;) {
            if (taskAboutToBeStopped()) {
                _outcome = TaskDescription::Fail;
                _outcomeMessage = QStringLiteral("Terminate by user");
                return;
            }
            if (_gate->open.tryAcquire(1, 2))
                return;
        }
    }
};

/** A task that does not override run(): it posts its completion at once. */
class PlainTask : public AbstractTask
{
public:
    PlainTask(TaskLedger *ledger, int id)
        : AbstractTask(nullptr)
        , _ledger(ledger)
        , _id(id)
    { }
    ~PlainTask() override { _ledger->deleted(_id); }
    void afterRun() override { _ledger->afterRan(_id); }

private:
    TaskLedger *_ledger; // not owned
    int _id;
};

/**
 * Runs the event loop until @p done() holds or @p timeout milliseconds have passed. It wakes
 * on every event, so completions are handled as soon as they arrive (QTRY_ polls in 50 ms
 * steps, which adds up over thousands of batches); a timer wakes it to check the deadline.
 */
template<typename Predicate> bool waitUntil(Predicate done, int timeout = 60000)
{
    const QDeadlineTimer deadline(timeout);
    QTimer wake;
    wake.start(50);
    while (!done()) {
        if (deadline.hasExpired())
            return false;
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return true;
}

/**
 * The Thread objects of one pool. Destroying them all stops the pool and waits for every
 * worker, which leaves the queue's static state as it was before the pool started.
 */
class Pool
{
public:
    explicit Pool(int workers)
    {
        for (int i = 0; i < workers; ++i) {
            auto *thread = new Thread;
            thread->start();
            _threads.append(thread);
        }
    }
    ~Pool() { stop(); }
    Pool(const Pool &) = delete;
    Pool &operator=(const Pool &) = delete;

    void stop()
    {
        // The first destruction stops the whole pool; each later one waits for its worker.
        qDeleteAll(_threads);
        _threads.clear();
    }

    QList<Thread *> &threads() { return _threads; }

    /**
     * Waits until the queue accepts a task, i.e. the first worker has opened it, putting
     * @p probe; the probe belongs to the pool from then on.
     */
    static bool waitUntilOpen(AbstractTask *probe, int timeout = 10000)
    {
        return QTest::qWaitFor([probe] { return Thread::put(probe); }, timeout);
    }

private:
    QList<Thread *> _threads;
};

/**
 * Keeps a Fatal QAbstractItemModelTester on a task observer model at all times except while
 * the observer clears its list.
 *
 * clearTasks() announces the removal of the whole list as tasksAboutToBeRemoved(n, n), the
 * list length twice, which the model hands on unchanged to beginRemoveRows(n, n): a range
 * one past the last row. That pair is part of the observer's interface and is kept, but the
 * tester rightly rejects it (it expects rows n..n to exist and the count to drop by one). So
 * the tester is dropped just before that removal and a fresh one checks the emptied model
 * right after it; every insertion, data change and stop request is checked.
 *
 * Construct the guard before anything else connects to the model's removal signals that
 * must not see a dead tester: its own connections must run before the tester's.
 */
class ModelTesterGuard : public QObject
{
public:
    explicit ModelTesterGuard(QAbstractItemModel *model)
        : _model(model)
    {
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                [this] { _tester.reset(); });
        connect(model, &QAbstractItemModel::rowsRemoved, this, [this] { attach(); });
        attach();
    }

    int attachments() const { return _attachments; }

private:
    void attach()
    {
        _tester.reset(new QAbstractItemModelTester(
            _model, QAbstractItemModelTester::FailureReportingMode::Fatal));
        ++_attachments;
    }

    QAbstractItemModel *_model; // not owned
    std::unique_ptr<QAbstractItemModelTester> _tester;
    int _attachments = 0;
};
