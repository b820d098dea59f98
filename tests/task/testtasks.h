// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/abstracttask.h"
#include "task/thread.h"

#include <QAbstractItemModelTester>
#include <QSemaphore>
#include <QTest>
#include <QThread>

#include <array>
#include <atomic>
#include <memory>
#include <stdexcept>

/** Counts per task id its runs, afterRun() calls and deletions (workers count too). */
class Ledger
{
public:
    enum What { Run, AfterRun, Deletion };
    explicit Ledger(int size)
        : _counts(new std::array<std::atomic<int>, 3>[size]())
    { }
    void count(int id, What what)
    {
        ++_counts[id][what];
        ++_totals[what];
        // run() belongs on a worker, afterRun() on the user-interface thread.
        if (what != Deletion && (what == Run) == (QThread::currentThread() == qApp->thread()))
            ++_misplaced;
    }
    int afterRuns() const { return _totals[AfterRun]; }
    int deletions() const { return _totals[Deletion]; }

    /** Empty when each of ids [first, last) ran, got afterRun() and was deleted as expected. */
    QByteArray check(int first, int last, const char *expected = "1 1 1") const
    {
        for (int id = first; id < last && !_misplaced; ++id) {
            const auto &c = _counts[id];
            const QByteArray got = QString::asprintf("%d %d %d", +c[0], +c[1], +c[2]).toLatin1();
            if (got != expected)
                return "task " + QByteArray::number(id) + " (run, afterRun, delete): " + got;
        }
        return _misplaced ? "run() or afterRun() on the wrong thread" : "";
    }

private:
    std::unique_ptr<std::array<std::atomic<int>, 3>[]> _counts;
    std::array<std::atomic<int>, 3> _totals {};
    std::atomic<int> _misplaced {0};
};

/** started: released by each task that reaches the gate; open: lets one waiting task go on. */
struct Gate
{
    QSemaphore started, open;
};

/**
 * Ends with its outcome, or throws (throwing 1: std::runtime_error, 2: an int). A gated one
 * waits there in run(); stoppable (flag 1) and asked to stop, it fails "Terminate by user".
 */
class Task : public AbstractTask
{
public:
    Task(Ledger *ledger, int id, const QString &title = QString(),
         TaskDescription::TaskStatus outcome = TaskDescription::Success,
         const QString &message = QString(), Gate *gate = nullptr, quint64 flags = 0,
         ElementData *data = nullptr)
        : AbstractTask(data)
        , _ledger(ledger)
        , _id(id)
        , _outcome(outcome)
        , _message(message)
        , _gate(gate)
    {
        _taskSpecialFlags = flags;
        _taskDescription.setDescription(title);
    }
    ~Task() override { _ledger->count(_id, Ledger::Deletion); }

    void run() override
    {
        _ledger->count(_id, Ledger::Run);
        if (_gate)
            _gate->started.release();
        while (_gate && !_gate->open.tryAcquire(1, 2)) {
            if (taskAboutToBeStopped()) {
                _outcome = TaskDescription::Fail;
                _message = QStringLiteral("Terminate by user");
                break;
            }
        }
        if (throwing)
            throwing == 1 ? throw std::runtime_error(_message.toStdString()) : throw 42;
        _taskDescription.setStatus(_outcome);
        _taskDescription.setMessage(_message);
        AbstractTask::run();
    }
    void afterRun() override { _ledger->count(_id, Ledger::AfterRun); }

    int throwing = 0;

private:
    Ledger *_ledger; // not owned
    int _id;
    TaskDescription::TaskStatus _outcome;
    QString _message;
    Gate *_gate; // not owned, outlives the task
};

/** The Thread objects of one pool; destroying them all resets the static queue. */
struct Pool
{
    explicit Pool(int workers)
    {
        for (int i = 0; i < workers; ++i) {
            threads.append(new Thread);
            threads.last()->start();
        }
    }
    ~Pool() { qDeleteAll(threads); }
    static bool open(AbstractTask *probe)
    {
        return QTest::qWaitFor([probe] { return Thread::put(probe); }, 10000);
    }

    QList<Thread *> threads;
};

/**
 * Keeps a Fatal QAbstractItemModelTester on a model except while rows are removed: the
 * observer announces clearing n rows as (n, n), one past the last row. The pair is part of its
 * interface, but the tester rightly rejects it; a fresh tester checks the emptied model.
 */
class ModelTesterGuard : public QObject
{
public:
    explicit ModelTesterGuard(QAbstractItemModel *model)
    {
        auto attach = [this, model] {
            _tester.reset(new QAbstractItemModelTester(
                model, QAbstractItemModelTester::FailureReportingMode::Fatal));
        };
        connect(model, &QAbstractItemModel::rowsAboutToBeRemoved, this,
                [this] { _tester.reset(); });
        connect(model, &QAbstractItemModel::rowsRemoved, this, attach);
        attach();
    }

private:
    std::unique_ptr<QAbstractItemModelTester> _tester;
};
