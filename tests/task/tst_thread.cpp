// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/elementdata.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "testtasks.h"
#include "treestring.h"

#include <QApplication>
#include <QDialog>
#include <QtTest>

namespace {

int dataDeletions = 0;

struct CountedData : ElementData
{
    ~CountedData() override { ++dataDeletions; }
};

/** Closes the modal task observer dialog; false when it is not open or refuses to close. */
bool closeTaskDialog()
{
    auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
    return dialog && dialog->close();
}

} // namespace

// The worker pool. Its queue is static: every function (and row) starts its own pool and leaves
// it stopped, so successive pools run in one process; the first relies on no worker started.
class tst_Thread : public QObject
{
    Q_OBJECT

    TaskObserver *_observer = nullptr;

private slots:
    void cleanupTestCase() { delete _observer; }
    void initTestCase()
    {
        // Completions go to the observer. No dialog: a batch here never lasts an hour.
        _observer = TaskObserver::instance();
        _observer->findChild<QTimer *>(QStringLiteral("_timer"))->setInterval(3600 * 1000);
    }

    void refusedBeforeTheFirstWorkerStarts()
    {
        Ledger ledger(2);
        auto *task
            = new Task(&ledger, 0, {}, TaskDescription::Success, {}, nullptr, 0, new CountedData);
        QVERIFY(!Thread::put(task));
        {
            // Nor does a Thread never started open the queue, or spoil it when destroyed.
            Thread idle;
            QVERIFY(!Thread::put(task));
        }
        // The observer deletes a refused task and its element data; the row fails, dialog closes
        _observer->performTask(task);
        QCOMPARE(ledger.check(0, 1, "0 0 1"), QByteArray());
        QCOMPARE(dataDeletions, 1);
        const QModelIndex status = _observer->model()->index(0, 1);
        QCOMPARE(status.data(Qt::EditRole).toString() + ' '
                     + status.siblingAtColumn(2).data().toString(),
                 "1 The task was not run: no worker threads have been started.");
        QVERIFY(closeTaskDialog());
        QCOMPARE(_observer->model()->rowCount(), 0);

        Pool pool(1);
        QVERIFY(Pool::open(new Task(&ledger, 1)));
        QVERIFY(!Thread::put(nullptr));
        QTRY_COMPARE(ledger.deletions(), 2);
        QCOMPARE(ledger.check(1, 2), QByteArray());
    }

    void noTaskIsLost_data()
    {
        OvtTest::table(); // workers; producers (0: batches of 64 through performTask); tasks
        OvtTest::row("1 worker, batches", "1; 0; 3000");
        OvtTest::row("4 workers, batches", "4; 0; 3000");
        OvtTest::row("1 worker, 1 producer", "1; 1; 3000");
        OvtTest::row("2 workers, 4 producers", "2; 4; 40000");
        OvtTest::row("2 workers, 8 producers", "2; 8; 80000");
    }

    void noTaskIsLost()
    {
        const auto numbers = OvtTest::fields<3>();
        const int workers = numbers[0].toInt(), producers = numbers[1].toInt(),
                  tasks = numbers[2].toInt();
        Ledger ledger(tasks + 1);
        // A Thread destroyed right after start() neither hangs nor spoils the next pool.
        for (int i = 0; i < 10; ++i)
            Pool(1);
        ModelTesterGuard guard(_observer->model());
        Pool pool(workers);
        QVERIFY(Pool::open(new Task(&ledger, tasks)));
        QTRY_COMPARE(ledger.afterRuns(), 1); // the queue is empty

        for (int first = 0; !producers && first < tasks; first += 64) {
            for (int id = first; id < qMin(tasks, first + 64); ++id)
                _observer->performTask(new Task(&ledger, id));
            QTRY_COMPARE_WITH_TIMEOUT(_observer->model()->rowCount(), 0, 60000);
        }
        // Several threads put at once, each retrying what the full queue refuses
        std::vector<std::unique_ptr<QThread>> threads;
        for (int p = 0; p < producers; ++p) {
            const int each = tasks / producers;
            threads.emplace_back(QThread::create([&, p, each] {
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

        QVERIFY2(QTest::qWaitFor([&] { return ledger.afterRuns() == tasks + 1; }, 60000),
                 ledger.check(0, tasks).constData());
        QCOMPARE(ledger.check(0, tasks + 1), QByteArray());
    }

    void destroyingAnyThreadStopsThePool()
    {
        Ledger ledger(18);
        Gate gate;
        ModelTesterGuard guard(_observer->model());
        auto gated = [&](int id, Gate *at) {
            return new Task(&ledger, id, {}, TaskDescription::Success, {}, at, 1);
        };
        Pool pool(3);
        QVERIFY(Pool::open(new Task(&ledger, 0)));
        QTRY_COMPARE(ledger.afterRuns(), 1);

        // Three workers run a performed task each and ten more wait when a Thread is destroyed
        // (any one: this one never even ran)
        for (int id = 1; id < 14; ++id)
            _observer->performTask(gated(id, id < 4 ? &gate : nullptr));
        QVERIFY(gate.started.tryAcquire(3, 10000));

        delete new Thread;

        // Then the pool takes nothing more, and whatever is put while the workers leave is
        // refused, never lost in the reset queue
        int puts = 0;
        auto refused = [&] {
            std::unique_ptr<Task> task(new Task(&ledger, 14));
            return ++puts && !Thread::put(task.get());
        };
        QVERIFY(refused());
        gate.open.release(3);
        for (Thread *thread : qAsConst(pool.threads)) {
            while (!thread->isFinished())
                QVERIFY(refused());
        }
        // The queued tasks are deleted unrun: their rows fail, end the batch, the dialog closes
        QTRY_COMPARE(ledger.deletions(), 14 + puts);
        QCOMPARE(ledger.check(0, 4) + ledger.check(4, 14, "0 0 1"), QByteArray());
        TaskObserverModel *model = _observer->model();
        for (int row = 2; row < 13; ++row) { // the first of them ran
            const QModelIndex status = model->index(row, 1);
            QTRY_COMPARE(status.data(Qt::EditRole).toString() + ' '
                             + status.siblingAtColumn(2).data().toString(),
                         row == 2 ? "2 " : "1 The task was not run: the worker pool stopped.");
            QVERIFY(status.data(Qt::UserRole).toULongLong() == 0 && !model->setData(status, 4));
        }
        QVERIFY(closeTaskDialog());
        qDeleteAll(pool.threads);
        pool.threads.clear();

        // The same for a started Thread of the next pool, once all three workers have joined it
        Pool next(3);
        QVERIFY(Pool::open(gated(15, &gate)));
        QVERIFY(Thread::put(gated(16, &gate)) && Thread::put(gated(17, &gate)));
        QVERIFY(gate.started.tryAcquire(3, 10000));
        gate.open.release(3);
        QTRY_COMPARE(ledger.afterRuns(), 7);
        delete next.threads.takeAt(1);
        for (Thread *thread : qAsConst(next.threads))
            QTRY_VERIFY(thread->isFinished());
    }

    void completionAfterTheObserverIsGone()
    {
        // Given a task still runs when the observer is destroyed
        Ledger ledger(2);
        Gate gate;
        Pool pool(1);
        QVERIFY(Pool::open(new Task(&ledger, 0)));
        QVERIFY(Thread::put(new Task(&ledger, 1, {}, TaskDescription::Success, {}, &gate)));
        QVERIFY(gate.started.tryAcquire(1, 10000));
        QTRY_COMPARE(ledger.afterRuns(), 1);
        delete std::exchange(_observer, nullptr);

        // When it completes, its worker deletes it without afterRun() and creates no observer
        gate.open.release();
        QTRY_COMPARE(ledger.deletions(), 2);
        QCOMPARE(ledger.check(1, 2, "1 0 1"), QByteArray());
    }
};

QTEST_MAIN(tst_Thread)
#include "tst_thread.moc"
