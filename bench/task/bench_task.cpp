// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Benchmark of the task pool: the round trip performTask -> afterRun through the real task
// observer, and the throughput of pools of 1, 2 and 4 workers on tiny and on 1 ms tasks, each
// next to QtConcurrent::run with a QFutureWatcher doing the same work. Prints a table.
//
// Run by hand: bench/task/bench_task (offscreen unless QT_QPA_PLATFORM says otherwise).

#include "task/abstracttask.h"
#include "task/taskobserver.h"
#include "task/thread.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QFutureWatcher>
#include <QThreadPool>
#include <QTimer>
#include <QVector>
#include <QtConcurrent>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <memory>
#include <thread>

namespace {

enum class Work { Tiny, OneMillisecond };

// The work itself: nothing, or a 1 ms blocking wait (the kind of time a task spends waiting
// for a child process or a file), identical for both sides.
void doWork(Work work)
{
    if (work == Work::OneMillisecond)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

/** A task whose afterRun() hands control back to the benchmark driver. */
class BenchTask : public AbstractTask
{
public:
    BenchTask(Work work, std::function<void()> *done)
        : AbstractTask(nullptr)
        , _work(work)
        , _done(done)
    {
        _taskDescription.setDescription(QStringLiteral("bench"));
    }
    void run() override
    {
        doWork(_work);
        _taskDescription.setStatus(TaskDescription::Success);
        AbstractTask::run();
    }
    void afterRun() override { (*_done)(); }

private:
    Work _work;
    std::function<void()> *_done; // not owned
};

/** The Thread objects of one pool, started and waited for until the queue is open. */
class Pool
{
public:
    explicit Pool(int workers)
    {
        for (int i = 0; i < workers; ++i) {
            _threads.append(new Thread);
            _threads.last()->start();
        }
        // The queue opens when the first worker has started; a probe tells when, and its
        // completion that the pool works.
        bool probed = false;
        std::function<void()> probeDone = [&probed] {
            probed = true;
        };
        auto *probe = new BenchTask(Work::Tiny, &probeDone);
        while (!Thread::put(probe))
            QThread::yieldCurrentThread();
        while (!probed)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    ~Pool() { qDeleteAll(_threads); }

private:
    QList<Thread *> _threads;
};

struct Latency
{
    double median = 0;
    double p90 = 0;
};

Latency summarise(QVector<qint64> nanoseconds)
{
    std::sort(nanoseconds.begin(), nanoseconds.end());
    Latency result;
    result.median = nanoseconds.at(nanoseconds.size() / 2) / 1000.0;
    result.p90 = nanoseconds.at(nanoseconds.size() * 9 / 10) / 1000.0;
    return result;
}

// One task at a time: hand it over with submit, then wait for its afterRun before the next one.
Latency roundTrip(int workers, int count, const std::function<void(AbstractTask *)> &submit)
{
    Pool pool(workers);
    QVector<qint64> samples;
    samples.reserve(count);
    QEventLoop loop;
    QElapsedTimer clock;
    int started = 0;
    std::function<void()> done;
    std::function<void()> next = [&] {
        if (started == count + 100) {
            loop.quit();
            return;
        }
        ++started;
        clock.start();
        submit(new BenchTask(Work::Tiny, &done));
    };
    done = [&] {
        if (started > 100) // the first hundred warm up
            samples.append(clock.nsecsElapsed());
        next();
    };
    QTimer::singleShot(0, &loop, next);
    loop.exec();
    return summarise(samples);
}

// Through the observer, as tools do.
Latency roundTripObserver(int workers, int count)
{
    return roundTrip(workers, count,
                     [](AbstractTask *task) { TaskObserver::instance()->performTask(task); });
}

// The pool alone: Thread::put, completion through the observer as a task it did not list.
Latency roundTripPut(int workers, int count)
{
    return roundTrip(workers, count, [](AbstractTask *task) { Thread::put(task); });
}

Latency roundTripConcurrent(int workers, int count)
{
    QThreadPool threads;
    threads.setMaxThreadCount(workers);
    QVector<qint64> samples;
    samples.reserve(count);
    QEventLoop loop;
    QElapsedTimer clock;
    int started = 0;
    QFutureWatcher<void> watcher;
    auto next = [&] {
        if (started == count + 100) {
            loop.quit();
            return;
        }
        ++started;
        clock.start();
        watcher.setFuture(QtConcurrent::run(&threads, [] { doWork(Work::Tiny); }));
    };
    QObject::connect(&watcher, &QFutureWatcherBase::finished, &loop, [&] {
        if (started > 100)
            samples.append(clock.nsecsElapsed());
        next();
    });
    QTimer::singleShot(0, &loop, next);
    loop.exec();
    return summarise(samples);
}

const int window = 64; // tasks in flight at most, the queue's bound

// Keeps up to 64 tasks in flight through Thread::put; completions come back through the
// observer (as tasks it did not list: afterRun and delete, no bookkeeping). Tasks per second.
double throughputPut(int workers, Work work, int count)
{
    Pool pool(workers);
    QEventLoop loop;
    int submitted = 0;
    int finished = 0;
    std::function<void()> done = [&] {
        if (++finished == count)
            loop.quit();
        else if (submitted < count) {
            ++submitted;
            Thread::put(new BenchTask(work, &done));
        }
    };
    QElapsedTimer clock;
    clock.start();
    for (; submitted < qMin(window, count); ++submitted)
        Thread::put(new BenchTask(work, &done));
    loop.exec();
    return count * 1e9 / clock.nsecsElapsed();
}

// The same work through TaskObserver::performTask, in batches of 64: each batch is listed,
// blocks input and is cleared when its last task is done.
double throughputObserver(int workers, Work work, int count)
{
    Pool pool(workers);
    QEventLoop loop;
    int submitted = 0;
    int finished = 0;
    std::function<void()> done;
    auto batch = [&] {
        const int last = qMin(count, submitted + window);
        for (; submitted < last; ++submitted)
            TaskObserver::instance()->performTask(new BenchTask(work, &done));
    };
    done = [&] {
        ++finished;
        if (finished == count)
            loop.quit();
        else if (finished == submitted)
            batch(); // the observer has already closed this batch: this starts the next
    };
    QElapsedTimer clock;
    clock.start();
    batch();
    loop.exec();
    return count * 1e9 / clock.nsecsElapsed();
}

double throughputConcurrent(int workers, Work work, int count)
{
    QThreadPool threads;
    threads.setMaxThreadCount(workers);
    QEventLoop loop;
    int submitted = 0;
    int finished = 0;
    std::function<void()> submit = [&] {
        ++submitted;
        auto *watcher = new QFutureWatcher<void>;
        QObject::connect(watcher, &QFutureWatcherBase::finished, &loop, [&, watcher] {
            delete watcher;
            if (++finished == count)
                loop.quit();
            else if (submitted < count)
                submit();
        });
        watcher->setFuture(QtConcurrent::run(&threads, [work] { doWork(work); }));
    };
    QElapsedTimer clock;
    clock.start();
    while (submitted < qMin(window, count))
        submit();
    loop.exec();
    return count * 1e9 / clock.nsecsElapsed();
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QElapsedTimer total;
    total.start();

    // The observer must live on this thread. Its grace timer is set beyond any run, so the
    // task observer dialog never opens; the invisible block dialog still opens and closes
    // with every batch, as it does in a tool.
    TaskObserver *observer = TaskObserver::instance();
    observer->findChild<QTimer *>(QStringLiteral("_timer"))->setInterval(3600 * 1000);

    const QList<int> pools {1, 2, 4};
    std::printf("ovt-common task pool benchmark (%d cores, Qt %s)\n\n", QThread::idealThreadCount(),
                qVersion());

    std::printf("Round trip of one task, start to afterRun on the UI thread (microseconds, "
                "median / 90th percentile, 2000 tasks one at a time)\n");
    std::printf("%-8s %-24s %-22s %-34s %s\n", "workers", "performTask->afterRun",
                "Thread::put->afterRun", "QtConcurrent::run+QFutureWatcher",
                "ratio performTask / QtConcurrent (median)");
    for (int workers : pools) {
        const Latency ovt = roundTripObserver(workers, 2000);
        const Latency put = roundTripPut(workers, 2000);
        const Latency qt = roundTripConcurrent(workers, 2000);
        std::printf("%-8d %7.1f / %-14.1f %7.1f / %-12.1f %7.1f / %-24.1f %.2f\n", workers,
                    ovt.median, ovt.p90, put.median, put.p90, qt.median, qt.p90,
                    ovt.median / qt.median);
    }

    std::printf("\nThroughput (tasks per second, at most %d tasks in flight)\n", window);
    std::printf("%-8s %-8s %-14s %-24s %-14s %s\n", "task", "workers", "Thread::put",
                "performTask, batches 64", "QtConcurrent", "ratio (put / QtConcurrent)");
    struct Load
    {
        Work work;
        const char *name;
        int count;
    };
    for (const Load &load :
         {Load {Work::Tiny, "tiny", 30000}, Load {Work::OneMillisecond, "1 ms", 1000}}) {
        for (int workers : pools) {
            const int count = load.work == Work::Tiny ? load.count : load.count * workers;
            const double put = throughputPut(workers, load.work, count);
            const double observed = throughputObserver(workers, load.work, count);
            const double qt = throughputConcurrent(workers, load.work, count);
            std::printf("%-8s %-8d %-14.0f %-24.0f %-14.0f %.2f\n", load.name, workers, put,
                        observed, qt, put / qt);
        }
    }
    std::printf("\nTotal run time %.1f s\n", total.elapsed() / 1000.0);
    delete observer;
    return 0;
}
