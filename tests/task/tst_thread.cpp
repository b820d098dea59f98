#include "element/elementdata.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "task/thread.h"
#include "testtasks.h"

#include <QApplication>
#include <QDialog>
#include <QtTest>

namespace {

int dataDeletions = 0;

class CountedData : public ElementData
{
public:
    ~CountedData() override { ++dataDeletions; }
};

} // namespace

/*
 * The worker pool. Its queue is static and process-wide: every function (and every stress
 * row) starts its own pool and leaves it stopped, so successive pools run in one process; the
 * first function relies on no worker having started yet.
 */
class tst_Thread : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase() { delete _observer; }
    void taskStopRequest_data();
    void taskStopRequest();
    void refusedBeforeTheFirstWorkerStarts();
    void stress_data();
    void stress();
    void queueHoldsAtMost64_data();
    void queueHoldsAtMost64();
    void destroyingAnyThreadStopsThePool();
    void putFromSeveralThreads_data();
    void putFromSeveralThreads();
    void queuedTasksFailWhenThePoolStops();
    void completionAfterTheObserverIsGone();

private:
    TaskObserver *_observer = nullptr;
};

void tst_Thread::initTestCase()
{
    // Completions go to the observer. No dialog: a batch here never lasts an hour.
    _observer = TaskObserver::instance();
    _observer->findChild<QTimer *>(QStringLiteral("_timer"))->setInterval(3600 * 1000);
}

void tst_Thread::taskStopRequest_data()
{
    QTest::addColumn<quint64>("flags");
    QTest::addColumn<bool>("stoppable");
    QTest::newRow("no flags") << quint64(0) << false;
    QTest::newRow("other bits only") << quint64(0xFEull << 32 | 0x6) << false;
    QTest::newRow("bit 0 among others") << quint64(0x8000000000000003ull) << true;
}

void tst_Thread::taskStopRequest()
{
    QFETCH(quint64, flags);
    QFETCH(bool, stoppable);
    Ledger ledger(1);
    const int deletions = dataDeletions;
    {
        Task task(&ledger, 0, {}, TaskDescription::Success, {}, nullptr, flags, new CountedData);
        // Asked twice: the same answer both times, and the flag is never cleared.
        for (int i = 0; i < 2; ++i) {
            QCOMPARE(task.setTaskAboutToBeStopped(), stoppable);
            QCOMPARE(task.taskAboutToBeStopped(), stoppable);
        }
    }
    QCOMPARE(dataDeletions, deletions + 1); // the task owned its element data
}

void tst_Thread::refusedBeforeTheFirstWorkerStarts()
{
    Ledger ledger(2);
    auto *task = new Task(&ledger, 0);
    QVERIFY(!Thread::put(task));
    {
        // Nor does a Thread that was never started open the queue, or spoil it when destroyed.
        Thread idle;
        QVERIFY(!Thread::put(task));
    }
    QVERIFY(!Thread::put(task));
    // The observer deletes a task the queue refuses; its row fails and the dialog can close
    _observer->performTask(task);
    QCOMPARE(ledger.check(0, 1, "0 0 1"), QByteArray());
    QCOMPARE(_observer->model()->index(0, 2).data().toString(),
             QStringLiteral("The task was not run: no worker threads have been started."));
    QCOMPARE(_observer->model()->index(0, 1).data(Qt::EditRole), QVariant(TaskDescription::Fail));
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog && dialog->close());
    QCOMPARE(_observer->model()->rowCount(), 0);

    Pool pool(1);
    QVERIFY(Pool::open(new Task(&ledger, 1)));
    QVERIFY(!Thread::put(nullptr));
    QTRY_COMPARE(ledger.deletions(), 2);
    QCOMPARE(ledger.check(1, 2), QByteArray());
}

void tst_Thread::stress_data()
{
    QTest::addColumn<int>("workers");
    QTest::addColumn<bool>("batches");
    for (int workers : {1, 2, 4}) {
        const QByteArray pool = QByteArray::number(workers) + " worker(s): ";
        QTest::newRow(pool + "batches of 64 through performTask") << workers << true;
        QTest::newRow(pool + "put until refused, retry") << workers << false;
    }
}

void tst_Thread::stress()
{
    QFETCH(int, workers);
    QFETCH(bool, batches);
    const int tasks = 3000;
    Ledger ledger(tasks + 1);

    // A Thread destroyed right after start() neither hangs nor spoils the next pool.
    for (int i = 0; i < 10; ++i) {
        auto *thread = new Thread;
        thread->start();
        delete thread;
    }

    ModelTesterGuard guard(_observer->model());
    Pool pool(workers);
    QVERIFY(Pool::open(new Task(&ledger, tasks)));
    QTRY_COMPARE(ledger.afterRuns(), 1);

    int refusals = 0;
    if (batches) {
        for (int first = 0; first < tasks; first += 64) {
            const int last = qMin(tasks, first + 64);
            for (int id = first; id < last; ++id)
                _observer->performTask(new Task(&ledger, id));
            // The whole batch comes back before the next one goes in.
            QVERIFY2(QTest::qWaitFor([&] { return ledger.afterRuns() == last + 1; }, 60000),
                     ledger.check(first, last).constData());
            QCOMPARE(_observer->model()->rowCount(), 0);
        }
    } else {
        Task *pending = nullptr;
        for (int id = 0; id < tasks || pending;) {
            if (!pending)
                pending = new Task(&ledger, id++);
            if (Thread::put(pending)) {
                pending = nullptr;
            } else {
                // Full: 64 tasks wait, so completions are on their way.
                ++refusals;
                QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
            }
        }
        QVERIFY(QTest::qWaitFor([&] { return ledger.afterRuns() == tasks + 1; }, 60000));
        if (workers == 1)
            QVERIFY2(refusals > 0, "one worker cannot keep up with the producer");
    }
    QCOMPARE(ledger.check(0, tasks + 1), QByteArray());
    QCOMPARE(ledger.misplaced(), 0);
}

void tst_Thread::queueHoldsAtMost64_data()
{
    QTest::addColumn<int>("workers");
    QTest::newRow("1 worker") << 1;
    QTest::newRow("2 workers") << 2;
    QTest::newRow("4 workers") << 4;
}

void tst_Thread::queueHoldsAtMost64()
{
    QFETCH(int, workers);
    Ledger ledger(1 + 2 * (workers + 65));
    Gate gate;
    Pool pool(workers);
    QVERIFY(Pool::open(new Task(&ledger, 0)));

    // Two rounds, so the second one runs with the indexes wrapped round the buffer.
    int id = 1;
    for (int round = 0; round < 2; ++round) {
        // Given every worker waits at the gate, so nothing leaves the queue
        const int first = id;
        for (int w = 0; w < workers; ++w)
            QVERIFY(Thread::put(new Task(&ledger, id++, {}, TaskDescription::Success, {}, &gate)));
        QVERIFY(gate.started.tryAcquire(workers, 10000));

        // When 64 tasks wait, the 65th is refused
        for (int i = 0; i < 64; ++i)
            QVERIFY2(Thread::put(new Task(&ledger, id++)), "one of the first 64");
        auto *refused = new Task(&ledger, id++);
        QVERIFY(!Thread::put(refused));
        delete refused;

        // Then all the others run once the workers go on
        gate.open.release(workers);
        QTRY_COMPARE_WITH_TIMEOUT(ledger.afterRuns(), id - round - 1, 20000);
        QCOMPARE(ledger.check(first, id - 1), QByteArray());
        QCOMPARE(ledger.check(id - 1, id, "0 0 1"), QByteArray());
    }
}

void tst_Thread::destroyingAnyThreadStopsThePool()
{
    Ledger ledger(19);
    Gate gate;
    auto gated = [&](int id) {
        return new Task(&ledger, id, {}, TaskDescription::Success, {}, &gate);
    };
    Pool pool(3);
    QVERIFY(Pool::open(new Task(&ledger, 0)));

    // Given each of the three workers waits at the gate and ten tasks wait in the queue
    for (int id = 1; id <= 3; ++id)
        QVERIFY(Thread::put(gated(id)));
    QVERIFY(gate.started.tryAcquire(3, 10000));
    for (int id = 4; id < 14; ++id)
        QVERIFY(Thread::put(new Task(&ledger, id)));

    // When a Thread is destroyed (any one: this one never even ran)
    delete new Thread;

    // Then the pool takes nothing more, every worker leaves once its task is done, and the
    // queued tasks are deleted without run() or afterRun()
    auto *late = new Task(&ledger, 14);
    QVERIFY(!Thread::put(late));
    delete late;
    gate.open.release(3);
    // and whatever is put while the workers leave is refused, never lost in the reset queue
    int puts = 0;
    for (Thread *thread : qAsConst(pool.threads)) {
        while (!thread->isFinished()) {
            ++puts;
            auto *task = new Task(&ledger, 18);
            if (!Thread::put(task))
                delete task;
        }
    }
    QTRY_COMPARE(ledger.afterRuns(), 4);
    QCOMPARE(ledger.check(18, 19, "0 0 " + QByteArray::number(puts)), QByteArray());
    QCoreApplication::sendPostedEvents();
    QCOMPARE(ledger.check(0, 4), QByteArray());
    QCOMPARE(ledger.check(4, 15, "0 0 1"), QByteArray());
    pool.stop();

    // The same for a started Thread of the next pool, once all three workers have joined it
    Pool next(3);
    QVERIFY(Pool::open(gated(15)));
    QVERIFY(Thread::put(gated(16)) && Thread::put(gated(17)));
    QVERIFY(gate.started.tryAcquire(3, 10000));
    gate.open.release(3);
    QTRY_COMPARE(ledger.afterRuns(), 7);
    delete next.threads.takeAt(1);
    for (Thread *thread : qAsConst(next.threads))
        QTRY_VERIFY(thread->isFinished());
}

void tst_Thread::putFromSeveralThreads_data()
{
    QTest::addColumn<int>("producers");
    QTest::newRow("4 producers") << 4;
    QTest::newRow("8 producers") << 8;
}

void tst_Thread::putFromSeveralThreads()
{
    QFETCH(int, producers);
    const int each = 10000, tasks = producers * each;
    Ledger ledger(tasks + 1);
    Pool pool(2);
    QVERIFY(Pool::open(new Task(&ledger, tasks)));

    // Given several threads put tasks at once, each retrying what the full queue refuses
    std::vector<std::unique_ptr<QThread>> threads;
    for (int p = 0; p < producers; ++p) {
        threads.emplace_back(QThread::create([&ledger, p, each] {
            for (int id = p * each; id < (p + 1) * each; ++id) {
                auto *task = new Task(&ledger, id);
                while (!Thread::put(task))
                    QThread::yieldCurrentThread();
            }
        }));
        threads.back()->start();
    }
    for (auto &thread : threads)
        QTRY_VERIFY_WITH_TIMEOUT(thread->isFinished(), 120000);

    // Then every accepted task runs once, gets afterRun() and is deleted: none is lost
    QVERIFY2(QTest::qWaitFor([&] { return ledger.afterRuns() == tasks + 1; }, 60000),
             ledger.check(0, tasks).constData());
    QCOMPARE(ledger.check(0, tasks + 1), QByteArray());
}

void tst_Thread::queuedTasksFailWhenThePoolStops()
{
    // Given the worker runs a performed task and three more wait in the queue
    Ledger ledger(5);
    Gate gate;
    ModelTesterGuard guard(_observer->model());
    Pool pool(1);
    QVERIFY(Pool::open(new Task(&ledger, 0)));
    QTRY_COMPARE(ledger.afterRuns(), 1);
    for (int id = 1; id < 5; ++id)
        _observer->performTask(
            new Task(&ledger, id, {}, TaskDescription::Success, {}, id == 1 ? &gate : nullptr, 1));
    QVERIFY(gate.started.tryAcquire(1, 10000));

    // When the pool stops, the waiting tasks are deleted without running
    delete new Thread;
    gate.open.release();
    QTRY_COMPARE(ledger.deletions(), 5);
    QCOMPARE(ledger.check(2, 5, "0 0 1"), QByteArray());

    // Then their rows fail, let go of the tasks and end the batch: the dialog can close
    const TaskObserverModel *model = _observer->model();
    for (int row = 1; row < 4; ++row) {
        QTRY_COMPARE(model->index(row, 1).data(Qt::EditRole), QVariant(TaskDescription::Fail));
        QCOMPARE(model->index(row, 2).data().toString(),
                 QStringLiteral("The task was not run: the worker pool stopped."));
        QCOMPARE(model->index(row, 1).data(Qt::UserRole), QVariant(quint64(0)));
        QVERIFY(!_observer->model()->setData(model->index(row, 1), 4));
    }
    QCOMPARE(model->index(0, 1).data(Qt::EditRole), QVariant(TaskDescription::Success));
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog && dialog->close());
    QCOMPARE(model->rowCount(), 0);
}

void tst_Thread::completionAfterTheObserverIsGone()
{
    // Given a task still runs when the observer is destroyed
    Ledger ledger(2);
    Gate gate;
    Pool pool(1);
    QVERIFY(Pool::open(new Task(&ledger, 0)));
    QVERIFY(Thread::put(new Task(&ledger, 1, {}, TaskDescription::Success, {}, &gate)));
    QVERIFY(gate.started.tryAcquire(1, 10000));
    QTRY_COMPARE(ledger.afterRuns(), 1);
    delete _observer;
    _observer = nullptr;

    // When it completes, its worker deletes it without afterRun() and creates no observer
    gate.open.release();
    QTRY_COMPARE(ledger.deletions(), 2);
    QCOMPARE(ledger.check(1, 2, "1 0 1"), QByteArray());

    // The next observer, given a widget, makes it the parent of both dialogs
    QWidget window;
    _observer = TaskObserver::instance(&window);
    QCOMPARE(window.findChildren<QDialog *>().size(), 2);
    delete _observer;
    _observer = nullptr;
}

QTEST_MAIN(tst_Thread)
#include "tst_thread.moc"
