#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "task/thread.h"
#include "testtasks.h"

#include <QTimer>
#include <QtTest>

#include <memory>

/*
 * The worker pool. Its queue is static and process-wide, so every test function starts from a
 * stopped pool and leaves the pool stopped (all Thread objects destroyed), which puts the queue
 * back into its initial state; the functions run in declaration order, and the first ones
 * depend on no worker having started yet in this process.
 */
class tst_Thread : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();

    void putRefusesBeforeTheFirstWorkerStarted();
    void putRefusesNullTask();
    void taskWithoutRunOverridePostsAtOnce();
    void stress_data();
    void stress();
    void queueRefusesThe65thWaitingTask_data();
    void queueRefusesThe65thWaitingTask();
    void destroyingAnyThreadStopsThePool();
    void stoppingDeletesQueuedTasksWithoutAfterRun();
    void destroyedBeforeItsWorkerStarted();
    void successivePoolsRunTasks();

private:
    TaskObserver *_observer = nullptr;
};

void tst_Thread::initTestCase()
{
    // Completions are posted to the observer; it must exist on this thread before any task
    // runs. No dialog is wanted here: a batch of these tests never lasts an hour.
    _observer = TaskObserver::instance();
    _observer->findChild<QTimer *>(QStringLiteral("_timer"))->setInterval(3600 * 1000);
}

void tst_Thread::cleanupTestCase()
{
    delete _observer;
}

void tst_Thread::putRefusesBeforeTheFirstWorkerStarted()
{
    TaskLedger ledger(2);

    // Given no worker has ever started in this process
    auto *task = new LedgerTask(&ledger, 0);
    QVERIFY(!Thread::put(task));

    // A Thread that exists but was never started does not open the queue either, and
    // destroying it leaves nothing behind.
    auto *idle = new Thread;
    QVERIFY(!Thread::put(task));
    delete idle;
    QVERIFY(!Thread::put(task));

    // The refused task stays with the caller and never ran.
    delete task;
    QCOMPARE(ledger.runs(0), 0);
    QCOMPARE(ledger.deletions(0), 1);

    // Once a worker has started, the queue takes tasks.
    Pool pool(1);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 1)));
    QTRY_COMPARE(ledger.deletions(1), 1);
    QCOMPARE(ledger.checkCompleted(1, 2), QByteArray());
}

void tst_Thread::putRefusesNullTask()
{
    QVERIFY(!Thread::put(nullptr));
    TaskLedger ledger(1);
    Pool pool(2);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 0)));
    QVERIFY(!Thread::put(nullptr));
    QTRY_COMPARE(ledger.deletions(0), 1);
    pool.stop();
    QVERIFY(!Thread::put(nullptr));
}

void tst_Thread::taskWithoutRunOverridePostsAtOnce()
{
    TaskLedger ledger(1);
    Pool pool(1);
    QVERIFY(Pool::waitUntilOpen(new PlainTask(&ledger, 0)));
    QTRY_COMPARE(ledger.deletions(0), 1);
    QCOMPARE(ledger.afterRuns(0), 1);
    QCOMPARE(ledger.afterRunsOffUiThread(), 0);
}

enum class Feed { PutBatches, PerformTaskBatches, PutWhileAccepted };
Q_DECLARE_METATYPE(Feed)

void tst_Thread::stress_data()
{
    QTest::addColumn<int>("workers");
    QTest::addColumn<Feed>("feed");
    QTest::addColumn<int>("tasks");

    for (int workers : {1, 2, 4}) {
        const QByteArray pool = QByteArray::number(workers) + " worker(s): ";
        QTest::newRow(pool + "batches of 64 through put") << workers << Feed::PutBatches << 3000;
        QTest::newRow(pool + "batches of 64 through performTask")
            << workers << Feed::PerformTaskBatches << 3000;
        QTest::newRow(pool + "put as long as the queue accepts, retry when full")
            << workers << Feed::PutWhileAccepted << 3000;
    }
}

void tst_Thread::stress()
{
    QFETCH(int, workers);
    QFETCH(Feed, feed);
    QFETCH(int, tasks);

    TaskLedger ledger(tasks + 1);
    const int probeId = tasks;
    // Some tasks spin a little, so that workers overtake each other.
    auto makeTask = [&ledger](int id) {
        return new LedgerTask(&ledger, id, QString(), TaskDescription::Success, QString(), 0,
                              id % 7 == 0 ? 30 : 0);
    };

    std::unique_ptr<ModelTesterGuard> guard;
    if (feed == Feed::PerformTaskBatches)
        guard.reset(new ModelTesterGuard(_observer->model()));

    Pool pool(workers);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, probeId)));
    QTRY_COMPARE(ledger.afterRuns(probeId), 1);

    const int batch = 64;
    int refusals = 0;
    int next = 0;
    if (feed == Feed::PutWhileAccepted) {
        LedgerTask *pending = nullptr;
        while (next < tasks || pending) {
            if (!pending && next < tasks)
                pending = makeTask(next++);
            if (Thread::put(pending)) {
                pending = nullptr;
                continue;
            }
            // The queue is full: 64 tasks wait, so completions are on their way.
            ++refusals;
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        QVERIFY(waitUntil([&] { return ledger.totalAfterRuns() == tasks + 1; }));
    } else {
        while (next < tasks) {
            const int first = next;
            const int last = qMin(tasks, first + batch);
            for (int id = first; id < last; ++id) {
                LedgerTask *task = makeTask(id);
                if (feed == Feed::PutBatches)
                    QVERIFY2(Thread::put(task), "a batch of at most 64 fits the queue");
                else
                    _observer->performTask(task);
            }
            next = last;
            // The whole batch comes back before the next one goes in.
            QVERIFY2(waitUntil([&] { return ledger.totalAfterRuns() == last + 1; }),
                     ledger.checkCompleted(first, last).constData());
            if (feed == Feed::PerformTaskBatches)
                QCOMPARE(_observer->model()->rowCount(), 0);
        }
    }

    QCOMPARE(ledger.totalDeletions(), tasks + 1);
    QCOMPARE(ledger.checkCompleted(0, tasks + 1), QByteArray());
    QCOMPARE(ledger.runsOnUiThread(), 0);
    QCOMPARE(ledger.afterRunsOffUiThread(), 0);
    if (feed == Feed::PutWhileAccepted && workers == 1)
        QVERIFY2(refusals > 0, "one worker cannot keep up with the producer");

    // Stopping leaves nothing to run and a queue that refuses until the next pool opens it.
    pool.stop();
    auto *late = makeTask(0);
    QVERIFY(!Thread::put(late));
    delete late;
}

void tst_Thread::queueRefusesThe65thWaitingTask_data()
{
    QTest::addColumn<int>("workers");
    QTest::newRow("1 worker") << 1;
    QTest::newRow("2 workers") << 2;
    QTest::newRow("4 workers") << 4;
}

void tst_Thread::queueRefusesThe65thWaitingTask()
{
    QFETCH(int, workers);

    // ids: 0 the probe, then per round: the gate tasks, 64 queued tasks and the refused one
    const int rounds = 2;
    TaskLedger ledger(1 + rounds * (workers + 65));
    Gate gate;
    Pool pool(workers);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 0)));
    QTRY_COMPARE(ledger.afterRuns(0), 1);

    int id = 1;
    int finished = 1;
    for (int round = 0; round < rounds; ++round) {
        // Given every worker waits at the gate, so nothing leaves the queue
        for (int w = 0; w < workers; ++w)
            QVERIFY(Thread::put(new GateTask(&ledger, id++, &gate)));
        QVERIFY(QTest::qWaitFor([&gate, workers] { return gate.started.available() == workers; },
                                10000));
        gate.started.acquire(workers);

        // When 64 tasks wait, the 65th is refused; in the second round the indexes have
        // wrapped round the buffer and the bound still holds.
        const int firstQueued = id;
        for (int i = 0; i < 64; ++i)
            QVERIFY2(Thread::put(new LedgerTask(&ledger, id++)), "one of the first 64");
        auto *refused = new LedgerTask(&ledger, id++);
        QVERIFY(!Thread::put(refused));
        delete refused;

        // Then the queue drains once the workers go on
        gate.open.release(workers);
        finished += workers + 64;
        QTRY_COMPARE_WITH_TIMEOUT(ledger.totalAfterRuns(), finished, 20000);
        QCOMPARE(ledger.checkCompleted(firstQueued, id - 1), QByteArray());
        QCOMPARE(ledger.runs(id - 1), 0);
        QCOMPARE(ledger.checkCompleted(firstQueued - workers, firstQueued), QByteArray());
    }
    QCOMPARE(ledger.checkCompleted(0, 1), QByteArray());
}

void tst_Thread::destroyingAnyThreadStopsThePool()
{
    TaskLedger ledger(5);
    Gate gate;
    Pool pool(3);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 0)));

    // Given all three workers are in the pool: each one holds a task at the gate
    for (int id = 1; id <= 3; ++id)
        QVERIFY(Thread::put(new GateTask(&ledger, id, &gate)));
    QVERIFY(QTest::qWaitFor([&gate] { return gate.started.available() == 3; }, 10000));
    gate.open.release(3);
    QTRY_COMPARE(ledger.totalAfterRuns(), 4);

    // When the middle Thread is destroyed
    Thread *middle = pool.threads().takeAt(1);
    delete middle;

    // Then the other workers leave too
    QTRY_VERIFY(pool.threads().at(0)->isFinished());
    QTRY_VERIFY(pool.threads().at(1)->isFinished());
    auto *late = new LedgerTask(&ledger, 4);
    QVERIFY(!Thread::put(late));
    delete late;
    QCOMPARE(ledger.checkCompleted(0, 4), QByteArray());
}

void tst_Thread::stoppingDeletesQueuedTasksWithoutAfterRun()
{
    const int queued = 10;
    const int lateId = 2 + queued;
    TaskLedger ledger(lateId + 1);
    Gate gate;
    Pool pool(1);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 0)));

    // Given the only worker waits in a task and ten tasks wait in the queue
    QVERIFY(Thread::put(new GateTask(&ledger, 1, &gate)));
    QVERIFY(gate.started.tryAcquire(1, 10000));
    for (int i = 0; i < queued; ++i)
        QVERIFY(Thread::put(new LedgerTask(&ledger, 2 + i)));

    // When a Thread is destroyed (one that never ran: any Thread stops the pool)
    delete new Thread;

    // Then the pool takes nothing more
    auto *late = new LedgerTask(&ledger, lateId);
    QVERIFY(!Thread::put(late));
    delete late;
    QCOMPARE(ledger.runs(lateId), 0);

    // and once the running task finishes, the worker leaves and deletes the queued tasks
    gate.open.release();
    QTRY_VERIFY(pool.threads().at(0)->isFinished());
    QTRY_COMPARE(ledger.afterRuns(1), 1);
    QCOMPARE(ledger.checkCompleted(1, 2), QByteArray());
    for (int i = 0; i < queued; ++i) {
        QCOMPARE(ledger.runs(2 + i), 0);
        QCOMPARE(ledger.deletions(2 + i), 1);
    }
    // Posted events are all delivered by now: none for the queued tasks.
    QCoreApplication::sendPostedEvents();
    for (int i = 0; i < queued; ++i)
        QCOMPARE(ledger.afterRuns(2 + i), 0);
}

void tst_Thread::destroyedBeforeItsWorkerStarted()
{
    // A Thread destroyed right after start() must not hang, whether or not its worker had
    // joined, and must not keep the next pool from working.
    for (int i = 0; i < 50; ++i) {
        auto *thread = new Thread;
        thread->start();
        delete thread;
    }
    TaskLedger ledger(1);
    Pool pool(2);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, 0)));
    QTRY_COMPARE(ledger.deletions(0), 1);
    QCOMPARE(ledger.checkCompleted(0, 1), QByteArray());
}

void tst_Thread::successivePoolsRunTasks()
{
    // Pools of different sizes one after the other in one process, each fed more than the
    // queue holds, so its indexes wrap.
    const QList<int> sizes {1, 4, 2, 1, 3};
    const int perPool = 200;
    TaskLedger ledger(sizes.size() * (perPool + 1));
    int id = 0;
    for (int workers : sizes) {
        Pool pool(workers);
        const int first = id;
        QVERIFY(Pool::waitUntilOpen(new LedgerTask(&ledger, id++)));
        while (id < first + perPool + 1) {
            auto *task = new LedgerTask(&ledger, id);
            if (Thread::put(task)) {
                ++id;
            } else {
                // A refused task stays ours; the same id is tried again with a new task.
                delete task;
                ledger.forget(id);
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        }
        QTRY_COMPARE_WITH_TIMEOUT(ledger.totalAfterRuns(), id, 20000);
        QCOMPARE(ledger.checkCompleted(first, id), QByteArray());
    }
}

QTEST_MAIN(tst_Thread)
#include "tst_thread.moc"
