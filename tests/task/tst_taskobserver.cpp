// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/blockdialog.h"
#include "task/taskobserver.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "testtasks.h"
#include "treestring.h"

#include <QtTest>
#include <QtWidgets>

namespace {

const int hour = 3600 * 1000;
const auto ok = TaskDescription::Success;

// Rows of the mixed batch.
enum { Copied, Failed, Warned, Running, Waiting, StopRequested };

/** Lives at one fixed address: each instance takes the previous one's memory. */
struct RecycledTask : Task
{
    using Task::Task;
    static void *operator new(std::size_t) { return &storage; }
    static void operator delete(void *) { }
    static inline std::aligned_storage_t<sizeof(Task), alignof(Task)> storage;
};

} // namespace

// The observer, its model and dialogs, with one worker: tasks finish in the order they were
// performed, so signal sequences are fixed. A Fatal model tester watches every test.
class tst_TaskObserver : public QObject
{
    Q_OBJECT

    Task *task(const QString &title = QString(), TaskDescription::TaskStatus outcome = ok,
               const QString &message = QString(), bool gated = false, quint64 flags = 0)
    {
        return new Task(_ledger.get(), _nextId++, title, outcome, message,
                        gated ? _gate.get() : nullptr, flags);
    }
    Task *perform(Task *task)
    {
        ++_performed;
        _observer->performTask(task);
        return task;
    }
    QModelIndex index(int row, int column = 0) const { return _model->index(row, column); }
    template<class T = QPushButton> T *child(const char *name) const
    {
        return _dialog->findChild<T *>(QLatin1String(name));
    }
    QTreeView *view() const { return child<QTreeView>("_taskTreeView"); }
    QPushButton *more() const { return child("_morePushButton"); }
    QPushButton *stop() const { return child("_stopPushButton"); }
    QDialogButtonBox *buttons() const { return child<QDialogButtonBox>("_buttonBox"); }
    QStackedWidget *stack() const { return child<QStackedWidget>("_stackedWidget"); }
    QPlainTextEdit *messageText() const { return child<QPlainTextEdit>("_errorPlainTextEdit"); }
    /** "title|status text|status|flags|message" */
    QString rowText(int row) const
    {
        const auto text = [this, row](int column, int role = Qt::DisplayRole) {
            return index(row, column).data(role).toString();
        };
        return QStringList {text(0), text(1), text(1, Qt::EditRole), text(1, Qt::UserRole), text(2)}
            .join('|');
    }

    QTemporaryDir _dir;
    TaskObserver *_observer = nullptr;
    TaskObserverModel *_model = nullptr;
    TaskObserverDialog *_dialog = nullptr;
    QDialog *_blockDialog = nullptr;
    QTimer *_timer = nullptr;
    std::unique_ptr<Pool> _pool;
    std::unique_ptr<Ledger> _ledger;
    std::unique_ptr<Gate> _gate;
    std::unique_ptr<ModelTesterGuard> _guard;
    QString _signals; // the observer's, in order: <i i <r r for (about to be) inserted/removed, d
    int _nextId = 0;
    int _performed = 0;

private slots:
    void cleanupTestCase() { delete _observer; }
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
        QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, _dir.path());

        _observer = TaskObserver::instance();
        _model = _observer->model();
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            _dialog = _dialog ? _dialog : qobject_cast<TaskObserverDialog *>(widget);
            _blockDialog = _blockDialog ? _blockDialog : qobject_cast<BlockDialog *>(widget);
        }
        _timer = _observer->findChild<QTimer *>(QStringLiteral("_timer"));
        QVERIFY(_timer && _blockDialog && view() && more() && stop() && messageText());

        const auto record = [this](const QString &name) {
            return [this, name](int first, int last) {
                _signals += QStringLiteral("%1%2,%3 ").arg(name).arg(first).arg(last);
            };
        };
        connect(_observer, &TaskObserver::tasksAboutToBeInserted, this, record("<i"));
        connect(_observer, &TaskObserver::tasksInserted, this, record("i"));
        connect(_observer, &TaskObserver::tasksAboutToBeRemoved, this, record("<r"));
        connect(_observer, &TaskObserver::tasksRemoved, this, record("r"));
        connect(_observer, &TaskObserver::taskDataChanged, this,
                [this](int row) { _signals += QStringLiteral("d%1 ").arg(row); });

        _pool.reset(new Pool(1));
        Ledger probe(1);
        QVERIFY(Pool::open(new Task(&probe, 0)));
        QTRY_COMPARE(probe.deletions(), 1);
    }

    void init()
    {
        _ledger.reset(new Ledger(66));
        _gate.reset(new Gate);
        _nextId = _performed = 0;
        _timer->setInterval(hour);
        _guard.reset(new ModelTesterGuard(_model));
        _signals.clear();
    }

    void cleanup()
    {
        // Let every task finish, then bring the observer back to idle, whatever the test left.
        _gate->open.release(66);
        QTRY_COMPARE_WITH_TIMEOUT(_ledger->afterRuns(), _performed, 20000);
        _timer->stop();
        _blockDialog->reject();
        _dialog->unblockCloseButton();
        _dialog->reject();
        QCOMPARE(_model->rowCount(), 0);
        _guard.reset();
    }

    void batchOutcome_data()
    {
        // Grace period; a letter per task: Success, Fail, Warning, run() Throws a std::exception
        // or anything eXcept that (it fails); lower case: it outlasts the grace period.
        OvtTest::table();
        OvtTest::row("quick batch: no dialog", "1000; SSS");
        OvtTest::row("slow batch: dialog after grace", "1000; Ss");
        OvtTest::row("last fails while hidden", "3600000; SSF");
        OvtTest::row("last warns while hidden", "3600000; SSW");
        OvtTest::row("first fails while hidden", "3600000; FSS");
        OvtTest::row("no grace: success closes", "0; SS");
        OvtTest::row("no grace: failure stays", "0; SF");
        OvtTest::row("throws, worker goes on", "3600000; TS");
        OvtTest::row("throws anything", "3600000; XS");
    }

    void batchOutcome()
    {
        const auto [intervalText, outcomes] = OvtTest::fields<2>();
        const int interval = intervalText.toInt();
        const int n = outcomes.size();
        const bool problem = outcomes.toUpper().contains(QRegularExpression("[FWTX]"));
        const bool slow = outcomes != outcomes.toUpper();
        _timer->setInterval(interval);
        QSignalSpy closed(_dialog, &QDialog::rejected);

        const auto status = [&](int i) {
            return qMax(0, QString("FSW").indexOf(outcomes[i].toUpper()));
        };
        QString inserted, changed;
        for (int i = 0; i < n; ++i) {
            Task *t = task(QString::number(i), TaskDescription::TaskStatus(status(i) + 1),
                           QStringLiteral("message %1").arg(i), outcomes[i].isLower());
            t->throwing = QStringLiteral("TX").indexOf(outcomes[i]) + 1;
            perform(t);
            inserted += QStringLiteral("<i%1,%1 i%1,%1 ").arg(i);
            changed += QStringLiteral("d%1 ").arg(i);
        }
        // Without a grace period the dialog opens at once, else the invisible block dialog
        // holds input until the timer replaces it by the dialog
        QCOMPARE(QApplication::activeModalWidget(),
                 static_cast<QWidget *>(interval ? _blockDialog : _dialog));
        QVERIFY(_blockDialog->testAttribute(Qt::WA_DontShowOnScreen) && !buttons()->isEnabled());
        if (slow) {
            QTRY_COMPARE_WITH_TIMEOUT(QApplication::activeModalWidget(),
                                      static_cast<QWidget *>(_dialog), 10000);
            QVERIFY(!_blockDialog->isVisible() && !buttons()->isEnabled());
            _gate->open.release();
        }

        QTRY_COMPARE(_ledger->afterRuns(), n);
        QCOMPARE(_ledger->check(0, n), QByteArray());
        QVERIFY(!_blockDialog->isVisible() && !_timer->isActive() && buttons()->isEnabled());
        // Problems keep the dialog open (or open it); otherwise it closes or never shows
        QCOMPARE(_dialog->isVisible(), problem);
        QCOMPARE(closed.count(), int(!problem && (interval == 0 || slow)));
        QCOMPARE(_signals,
                 inserted + changed + (problem ? "" : QStringLiteral("<r%1,%1 r%1,%1 ").arg(n)));
        // The dialog lists the whole batch; finished rows have no task any more (flags 0)
        const QString texts[] {"fail|1", "success|2", "warning|3"};
        for (int i = 0; i < _model->rowCount(); ++i)
            QCOMPARE(rowText(i),
                     QStringLiteral("%1|%2|0|%3")
                         .arg(i)
                         .arg(texts[status(i)],
                              outcomes[i] == 'X'
                                  ? QStringLiteral("The task failed with an unexpected error.")
                                  : QStringLiteral("message %1").arg(i)));
    }

    void oddSubmissions()
    {
        // A null task and a task already asked to stop are ignored; the latter stays the caller's
        _observer->performTask(nullptr);
        std::unique_ptr<Task> stopped(task({}, ok, {}, false, 1));
        QVERIFY(stopped->setTaskAboutToBeStopped());
        _observer->performTask(stopped.get());
        QVERIFY(_signals.isEmpty() && !_timer->isActive());

        // A task given twice is listed and queued once
        Task *first = perform(new RecycledTask(_ledger.get(), _nextId++));
        _observer->performTask(first);
        perform(task({}, ok, {}, true));
        QVERIFY(_gate->started.tryAcquire(1, 10000));
        QTRY_COMPARE(_ledger->deletions(), 1);

        // A new task of the batch at the address of one that finished still runs
        QCOMPARE(perform(new RecycledTask(_ledger.get(), _nextId++)), first);
        // An unknown status, neither running nor done: the row shows nothing, the batch goes on
        perform(task("odd", TaskDescription::TaskStatus(7), "m"));
        QCOMPARE(_model->rowCount(), 4);
        _gate->open.release();
        QTRY_COMPARE(_ledger->deletions(), 4);
        QCOMPARE(_ledger->check(1, 4), QByteArray());
        QCOMPARE(rowText(3), QStringLiteral("||||"));
        QVERIFY(_timer->isActive());
    }

    void refusedByAFullQueue()
    {
        // Given the worker is busy and 64 tasks wait, one more is deleted unrun and its row
        // says why; the batch ends with that problem and the dialog can be closed
        perform(task({}, ok, {}, true));
        QVERIFY(_gate->started.tryAcquire(1, 10000));
        for (int i = 0; i < 64; ++i)
            perform(task());

        _observer->performTask(task("late"));
        QCOMPARE(_ledger->check(65, 66, "0 0 1"), QByteArray());
        QCOMPARE(rowText(65),
                 QStringLiteral("late|fail|1|0|The task was not run: "
                                "the task queue is full."));

        _gate->open.release();
        QTRY_VERIFY(_dialog->isVisible() && buttons()->isEnabled());
    }

    void clearTasks()
    {
        // Given three running rows, two of them held by a view
        for (int i = 0; i < 3; ++i)
            perform(task({}, ok, {}, true));
        const QPersistentModelIndex first(index(0, 0)), last(index(2, 1));
        _signals.clear();

        // When they are cleared, the removal is announced as (3, 3), the list length twice
        _observer->clearTasks();
        QCOMPARE(_signals, QStringLiteral("<r3,3 r3,3 "));
        QVERIFY(!first.isValid() && !last.isValid());

        // The tasks go on; unknown now, each completion ends the (empty) batch: no input stays
        // blocked, no dialog opens later, and the next batch's rows are not taken for the old ones
        _gate->open.release(3);
        QTRY_COMPARE(_ledger->deletions(), 3);
        QCOMPARE(_ledger->check(0, 3), QByteArray());
        QCOMPARE(_signals,
                 QStringLiteral("<r3,3 r3,3 ") + QStringLiteral("<r0,0 r0,0 ").repeated(3));
        QVERIFY(!_timer->isActive() && !_blockDialog->isVisible() && buttons()->isEnabled());
        perform(task());
        QVERIFY(!first.isValid() && !last.isValid());
    }

    void mixedBatchInTheDialog()
    {
        // Three done, one running, two waiting, the last of them asked to stop
        _timer->setInterval(0);
        perform(task("Copy"));
        perform(task("Delete", TaskDescription::Fail, "permission denied"));
        perform(task("Update", TaskDescription::Warning, "partly done"));
        perform(task("Import", ok, {}, true, 1));
        perform(task("Wait", ok, {}, true, 0x6)); // flags, but not stoppable
        perform(task("Print", ok, {}, true, 1));
        QVERIFY(_gate->started.tryAcquire(1, 10000));
        QTRY_COMPARE(_ledger->afterRuns(), 3);
        QVERIFY(_model->setData(index(StopRequested, 1), 4));
        QVERIFY(QTest::qWaitForWindowExposed(_dialog));
        // Only a running, stoppable row not asked before takes a stop request (status 4, edit
        // role, column 1)
        QSignalSpy changes(_model, &QAbstractItemModel::dataChanged);
        QVERIFY(!_model->setData(QModelIndex(), 4) && !_model->setData(index(Running, 1), 3)
                && !_model->setData(index(Running, 1), "four")
                && !_model->setData(index(Running, 1), 4, Qt::DisplayRole)
                && !_model->setData(index(Running, 0), 4));
        for (int row : {Copied, Failed, Warned, Waiting, StopRequested})
            QVERIFY(!_model->setData(index(row, 1), 4));
        QVERIFY(changes.isEmpty());
        QCOMPARE(rowText(Running), QStringLiteral("Import|processing|0|1|"));

        // Each row clicked, then double-clicked (as the window system delivers it); unchecking
        // More goes back to the list. Enabled buttons, More checked, page, title: message
        const auto enabled = [this] {
            return QString(more()->isEnabled() ? "M" : "") + (stop()->isEnabled() ? "S" : "");
        };
        const auto state = [&] {
            return QStringLiteral("%1 %2 %3 %4: %5\n")
                .arg(enabled())
                .arg(more()->isChecked())
                .arg(stack()->currentIndex())
                .arg(_dialog->windowTitle(), messageText()->toPlainText());
        };
        const auto click = [this](int row, bool twice) {
            const QPoint centre = view()->visualRect(index(row)).center();
            QTest::mouseClick(view()->viewport(), Qt::LeftButton, {}, centre);
            if (twice)
                QTest::mouseDClick(view()->viewport(), Qt::LeftButton, {}, centre);
        };
        QString seen = state();
        for (int row = Copied; row <= StopRequested; ++row) {
            click(row, true);
            seen += state();
            if (more()->isChecked()) {
                QTest::mouseClick(more(), Qt::LeftButton);
                seen += state();
            }
        }
        QCOMPARE(seen,
                 " 0 0 Tasks: \n 0 0 Tasks: \n"
                 "M 1 1 Error: Delete: permission denied\nM 0 0 Tasks: \n"
                 "M 1 1 Warning: Update: partly done\nM 0 0 Tasks: \n"
                 "S 0 0 Tasks: \n 0 0 Tasks: \n 0 0 Tasks: \n");

        // Stop asks the task, and the buttons follow the row until the task has failed
        click(Running, false);
        QTest::mouseClick(stop(), Qt::LeftButton);
        QCOMPARE(rowText(Running), QStringLiteral("Import|about to be stop|4|1|"));
        QCOMPARE(enabled(), QString());
        QTRY_COMPARE(rowText(Running), QStringLiteral("Import|fail|1|0|Terminate by user"));
        QCOMPARE(enabled(), QString("M"));
        QTest::mouseClick(more(), Qt::LeftButton);
        QCOMPARE(state(), "M 1 1 Error: Import: Terminate by user\n");

        // While tasks run, Escape, a close request and Close do nothing
        QTest::keyClick(_dialog, Qt::Key_Escape);
        QVERIFY(!_dialog->close());
        QTest::mouseClick(buttons()->button(QDialogButtonBox::Close), Qt::LeftButton);
        QVERIFY(_dialog->isVisible());
        // Once they are done, Escape closes it, message page and all, and clears the list
        _gate->open.release(3);
        QTRY_VERIFY(buttons()->isEnabled());
        QTest::keyClick(_dialog, Qt::Key_Escape);
        QVERIFY(!_dialog->isVisible());
        QCOMPARE(_model->rowCount(), 0);
        QCOMPARE(state(), " 0 0 Tasks: \n");
    }
};

QTEST_MAIN(tst_TaskObserver)
#include "tst_taskobserver.moc"
