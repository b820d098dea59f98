#include "task/blockdialog.h"
#include "task/taskobserver.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "task/taskperformedevent.h"
#include "testtasks.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QIcon>
#include <QPointer>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <new>

namespace {

/** Records the observer's signals as strings, in order. */
class ObserverRecorder : public QObject
{
public:
    explicit ObserverRecorder(TaskObserver *observer)
    {
        connect(observer, &TaskObserver::tasksAboutToBeInserted, this,
                [this](int f, int l) { add("aboutToBeInserted", f, l); });
        connect(observer, &TaskObserver::tasksInserted, this,
                [this](int f, int l) { add("inserted", f, l); });
        connect(observer, &TaskObserver::tasksAboutToBeRemoved, this,
                [this](int f, int l) { add("aboutToBeRemoved", f, l); });
        connect(observer, &TaskObserver::tasksRemoved, this,
                [this](int f, int l) { add("removed", f, l); });
        connect(observer, &TaskObserver::taskDataChanged, this,
                [this](int row) { _signals << QStringLiteral("dataChanged(%1)").arg(row); });
    }
    QStringList takeAll()
    {
        const QStringList all = _signals;
        _signals.clear();
        return all;
    }

private:
    void add(const char *name, int first, int last)
    {
        _signals << QStringLiteral("%1(%2,%3)").arg(QLatin1String(name)).arg(first).arg(last);
    }
    QStringList _signals;
};

/** Counts how often a widget was shown. */
class ShowCounter : public QObject
{
public:
    int shows = 0;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show)
            ++shows;
        return QObject::eventFilter(watched, event);
    }
};

/** A task that lives at one fixed address: each instance reuses the previous one's memory. */
class RecycledTask : public LedgerTask
{
public:
    using LedgerTask::LedgerTask;

    static void *operator new(std::size_t size)
    {
        Q_ASSERT(size <= sizeof(_storage));
        Q_ASSERT(!_inUse);
        _inUse = true;
        return &_storage;
    }
    static void operator delete(void *) { _inUse = false; }

private:
    static std::aligned_storage<sizeof(LedgerTask) + 64, alignof(std::max_align_t)>::type _storage;
    static bool _inUse;
};
std::aligned_storage<sizeof(LedgerTask) + 64, alignof(std::max_align_t)>::type
    RecycledTask::_storage;
bool RecycledTask::_inUse = false;

/**
 * Makes a small icon theme holding the four task icons and selects it, so that the model's
 * icons resolve (an icon found in the theme knows its name).
 */
bool installTaskIconTheme(const QString &root)
{
    const QString theme = root + QStringLiteral("/ovt-test");
    if (!QDir().mkpath(theme + QStringLiteral("/16x16")))
        return false;
    QFile index(theme + QStringLiteral("/index.theme"));
    if (!index.open(QIODevice::WriteOnly))
        return false;
    index.write("[Icon Theme]\nName=ovt-test\nDirectories=16x16\n\n"
                "[16x16]\nSize=16\nType=Fixed\n");
    index.close();
    for (const char *name : {"task-ongoing", "task-reject", "task-complete", "task-attention"}) {
        QImage image(16, 16, QImage::Format_ARGB32);
        image.fill(Qt::darkCyan);
        if (!image.save(theme + QStringLiteral("/16x16/") + QLatin1String(name)
                        + QStringLiteral(".png")))
            return false;
    }
    QIcon::setThemeSearchPaths({root});
    QIcon::setThemeName(QStringLiteral("ovt-test"));
    return true;
}

template<typename T> T *findTopLevel()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *found = qobject_cast<T *>(widget))
            return found;
    }
    return nullptr;
}

} // namespace

Q_DECLARE_METATYPE(TaskDescription::TaskStatus)

/*
 * The observer and its model. One worker runs the tasks, so they finish in the order they
 * were performed and the recorded signal sequences are fixed. A Fatal model tester watches the
 * model through every test (see ModelTesterGuard for the one step it must sit out).
 */
class tst_TaskObserver : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void singleInstanceAndTimer();
    void batchWithinGracePeriodShowsNoDialog();
    void gracePeriodThenDialogThenCloses();
    void problemWhileDialogHiddenOpensIt_data();
    void problemWhileDialogHiddenOpensIt();
    void zeroIntervalOpensDialogAtOnce();
    void zeroIntervalDialogStaysOpenOnFailure();
    void newBatchWhileProblemsAreShown();
    void taskGivenTwiceIsQueuedOnce();
    void nullAndStoppedTasksAreIgnored();
    void completionOfUnknownTask();
    void taskAtAddressOfFinishedTaskIsQueued();
    void modelShape();
    void rowPerStatus_data();
    void rowPerStatus();
    void statusAboveFourYieldsNothing();
    void stopRequest();
    void setDataRefusals_data();
    void setDataRefusals();
    void clearTasksSignalsTheListLength();
    void clearingInvalidatesPersistentIndexes();
    void widgetParentParentsTheDialogs();

private:
    void perform(AbstractTask *task);
    void waitForStarted(int count = 1);
    QModelIndex index(int row, int column) const { return model()->index(row, column); }
    TaskObserverModel *model() const { return _observer->model(); }

    TaskObserver *_observer = nullptr;
    TaskObserverDialog *_dialog = nullptr;
    BlockDialog *_blockDialog = nullptr;
    QTimer *_timer = nullptr;
    std::unique_ptr<Pool> _pool;
    std::unique_ptr<TaskLedger> _ledger;
    std::unique_ptr<Gate> _gate;
    std::unique_ptr<ModelTesterGuard> _guard;
    std::unique_ptr<ObserverRecorder> _recorder;
    ShowCounter _dialogShows;
    QTemporaryDir _iconThemeDir;
    int _nextId = 0;
    int _performed = 0;
};

void tst_TaskObserver::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_taskobserver"));
    QVERIFY(_iconThemeDir.isValid());
    QVERIFY(installTaskIconTheme(_iconThemeDir.path()));
    _observer = TaskObserver::instance();
    _dialog = findTopLevel<TaskObserverDialog>();
    _blockDialog = findTopLevel<BlockDialog>();
    _timer = _observer->findChild<QTimer *>(QStringLiteral("_timer"));
    QVERIFY(_dialog);
    QVERIFY(_blockDialog);
    QVERIFY(_timer);
    _dialog->installEventFilter(&_dialogShows);

    _pool.reset(new Pool(1));
    TaskLedger probeLedger(1);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&probeLedger, 0)));
    QTRY_COMPARE(probeLedger.deletions(0), 1);
}

void tst_TaskObserver::cleanupTestCase()
{
    _pool.reset();
    delete TaskObserver::instance();
}

void tst_TaskObserver::init()
{
    _ledger.reset(new TaskLedger(64));
    _gate.reset(new Gate);
    _nextId = 0;
    _performed = 0;
    _timer->setInterval(TaskObserver::_delay);
    _dialogShows.shows = 0;
    _guard.reset(new ModelTesterGuard(model()));
    _recorder.reset(new ObserverRecorder(_observer));
}

void tst_TaskObserver::cleanup()
{
    // Let every task of the test finish, then bring the observer back to idle, whatever state
    // the test left it in.
    _gate->open.release(64);
    QTRY_COMPARE_WITH_TIMEOUT(_ledger->totalAfterRuns(), _performed, 20000);
    if (model()->rowCount() > 0)
        _observer->clearTasks();
    _timer->stop();
    _blockDialog->reject();
    _dialog->unblockCloseButton();
    _dialog->reject();
    QCOMPARE(model()->rowCount(), 0);
    _recorder.reset();
    _guard.reset();
    _gate.reset();
    _ledger.reset();
}

void tst_TaskObserver::perform(AbstractTask *task)
{
    ++_performed;
    _observer->performTask(task);
}

void tst_TaskObserver::waitForStarted(int count)
{
    QVERIFY(_gate->started.tryAcquire(count, 10000));
}

void tst_TaskObserver::singleInstanceAndTimer()
{
    QObject other;
    QCOMPARE(TaskObserver::instance(), _observer);
    QCOMPARE(TaskObserver::instance(&other), _observer);
    QCOMPARE(_observer->parent(), nullptr);
    QCOMPARE(TaskObserver::_delay, 1000);
    QVERIFY(_timer->isSingleShot());
    QCOMPARE(_timer->interval(), 1000);
    QCOMPARE(_timer->parent(), _observer);
    QCOMPARE(_observer->model()->parent(), _observer);
    QVERIFY(_blockDialog->isModal());
    QVERIFY(_blockDialog->testAttribute(Qt::WA_DontShowOnScreen));
    QCOMPARE(_dialog->parentWidget(), nullptr);
}

void tst_TaskObserver::batchWithinGracePeriodShowsNoDialog()
{
    // When three quick tasks are performed
    for (int i = 0; i < 3; ++i)
        perform(new LedgerTask(_ledger.get(), _nextId++));

    // Then input is blocked at once, invisibly, and the rows show as processing
    QVERIFY(_blockDialog->isVisible());
    QVERIFY(!_dialog->isVisible());
    QVERIFY(_timer->isActive());
    QCOMPARE(model()->rowCount(), 3);
    QCOMPARE(index(2, 1).data().toString(), QStringLiteral("processing"));

    // and when they have finished, well within the grace period, no dialog was ever shown
    // and the list is cleared at once
    QTRY_COMPARE(_ledger->totalAfterRuns(), 3);
    QCOMPARE(_ledger->checkCompleted(0, 3), QByteArray());
    QCOMPARE(_ledger->afterRunsOffUiThread(), 0);
    QCOMPARE(_dialogShows.shows, 0);
    QVERIFY(!_blockDialog->isVisible());
    QVERIFY(!_timer->isActive());
    QCOMPARE(model()->rowCount(), 0);
    QCOMPARE(
        _recorder->takeAll(),
        QStringList({"aboutToBeInserted(0,0)", "inserted(0,0)", "aboutToBeInserted(1,1)",
                     "inserted(1,1)", "aboutToBeInserted(2,2)", "inserted(2,2)", "dataChanged(0)",
                     "dataChanged(1)", "dataChanged(2)", "aboutToBeRemoved(3,3)", "removed(3,3)"}));
}

void tst_TaskObserver::gracePeriodThenDialogThenCloses()
{
    QElapsedTimer elapsed;
    elapsed.start();
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Slow")));

    // Given a task that outlasts the grace period, the block dialog holds input
    QVERIFY(_blockDialog->isVisible());
    QVERIFY(!_dialog->isVisible());
    QVERIFY(!_dialog->findChild<QDialogButtonBox *>()->isEnabled());

    // until the timer replaces it by the dialog, not before the grace period (a coarse timer
    // may fire up to 5 % early)
    QTRY_VERIFY_WITH_TIMEOUT(_dialog->isVisible(), 10000);
    QVERIFY2(elapsed.elapsed() >= TaskObserver::_delay * 95 / 100,
             QByteArray::number(elapsed.elapsed()));
    QVERIFY(!_blockDialog->isVisible());
    QCOMPARE(_dialogShows.shows, 1);
    QVERIFY(!_dialog->findChild<QDialogButtonBox *>()->isEnabled());

    // When the task succeeds, the dialog closes itself and the list is cleared
    _gate->open.release();
    QTRY_VERIFY(!_dialog->isVisible());
    QCOMPARE(model()->rowCount(), 0);
    QVERIFY(_dialog->findChild<QDialogButtonBox *>()->isEnabled());
    QCOMPARE(_recorder->takeAll(),
             QStringList({"aboutToBeInserted(0,0)", "inserted(0,0)", "dataChanged(0)",
                          "aboutToBeRemoved(1,1)", "removed(1,1)"}));
    QCOMPARE(_ledger->checkCompleted(0, 1), QByteArray());
}

void tst_TaskObserver::problemWhileDialogHiddenOpensIt_data()
{
    QTest::addColumn<TaskDescription::TaskStatus>("outcome");
    QTest::addColumn<QString>("statusText");
    QTest::newRow("last task fails") << TaskDescription::Fail << QStringLiteral("fail");
    QTest::newRow("last task warns") << TaskDescription::Warning << QStringLiteral("warning");
}

void tst_TaskObserver::problemWhileDialogHiddenOpensIt()
{
    QFETCH(TaskDescription::TaskStatus, outcome);
    QFETCH(QString, statusText);

    // Given a grace period the batch never reaches
    _timer->setInterval(3600 * 1000);
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("first")));
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("second")));
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("third"), outcome,
                           QStringLiteral("disk full")));

    // When the last task ends with a problem, the dialog opens with every row of the batch
    QTRY_VERIFY(_dialog->isVisible());
    QCOMPARE(_ledger->totalAfterRuns(), 3);
    QVERIFY(!_blockDialog->isVisible());
    QVERIFY(!_timer->isActive());
    QCOMPARE(model()->rowCount(), 3);
    QCOMPARE(index(0, 0).data().toString(), QStringLiteral("first"));
    QCOMPARE(index(0, 1).data().toString(), QStringLiteral("success"));
    QCOMPARE(index(1, 1).data().toString(), QStringLiteral("success"));
    QCOMPARE(index(2, 0).data().toString(), QStringLiteral("third"));
    QCOMPARE(index(2, 1).data().toString(), statusText);
    QCOMPARE(index(2, 2).data().toString(), QStringLiteral("disk full"));
    // Finished rows no longer have a task.
    for (int row = 0; row < 3; ++row)
        QCOMPARE(index(row, 1).data(Qt::UserRole), QVariant::fromValue<quint64>(0));
    QVERIFY(_dialog->findChild<QDialogButtonBox *>()->isEnabled());
    QCOMPARE(_recorder->takeAll(),
             QStringList({"aboutToBeInserted(0,0)", "inserted(0,0)", "aboutToBeInserted(1,1)",
                          "inserted(1,1)", "aboutToBeInserted(2,2)", "inserted(2,2)",
                          "dataChanged(0)", "dataChanged(1)", "dataChanged(2)"}));

    // and it stays until the user closes it, which clears the list
    _dialog->reject();
    QCOMPARE(model()->rowCount(), 0);
    QCOMPARE(_recorder->takeAll(), QStringList({"aboutToBeRemoved(3,3)", "removed(3,3)"}));
}

void tst_TaskObserver::zeroIntervalOpensDialogAtOnce()
{
    _timer->setInterval(0);
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    QVERIFY(_dialog->isVisible());
    QVERIFY(!_blockDialog->isVisible());
    QVERIFY(!_timer->isActive());
    _gate->open.release();
    QTRY_VERIFY(!_dialog->isVisible());
    QCOMPARE(model()->rowCount(), 0);
}

void tst_TaskObserver::zeroIntervalDialogStaysOpenOnFailure()
{
    _timer->setInterval(0);
    perform(new LedgerTask(_ledger.get(), _nextId++, QString(), TaskDescription::Fail,
                           QStringLiteral("no")));
    QVERIFY(_dialog->isVisible());
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    QVERIFY(_dialog->isVisible());
    QCOMPARE(model()->rowCount(), 1);
    QVERIFY(_dialog->findChild<QDialogButtonBox *>()->isEnabled());
}

void tst_TaskObserver::newBatchWhileProblemsAreShown()
{
    // Given a failed batch is on show
    _timer->setInterval(0);
    perform(new LedgerTask(_ledger.get(), _nextId++, QString(), TaskDescription::Fail));
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    QVERIFY(_dialog->isVisible());
    _recorder->takeAll();

    // When another batch starts, its rows are added below and closing is blocked again
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    QCOMPARE(model()->rowCount(), 2);
    QVERIFY(!_dialog->findChild<QDialogButtonBox *>()->isEnabled());
    QVERIFY(!_blockDialog->isVisible());

    // and though it succeeds, the earlier problem keeps the dialog open
    _gate->open.release();
    QTRY_COMPARE(_ledger->totalAfterRuns(), 2);
    QVERIFY(_dialog->isVisible());
    QVERIFY(_dialog->findChild<QDialogButtonBox *>()->isEnabled());
    _dialog->reject();
    QCOMPARE(_recorder->takeAll(),
             QStringList({"aboutToBeInserted(1,1)", "inserted(1,1)", "dataChanged(1)",
                          "aboutToBeRemoved(2,2)", "removed(2,2)"}));
}

void tst_TaskObserver::taskGivenTwiceIsQueuedOnce()
{
    auto *task = new GateTask(_ledger.get(), _nextId++, _gate.get());
    perform(task);
    waitForStarted();
    _observer->performTask(task);
    QCOMPARE(model()->rowCount(), 1);

    _gate->open.release();
    QTRY_COMPARE(_ledger->totalDeletions(), 1);
    QCOMPARE(_ledger->checkCompleted(0, 1), QByteArray());
    QCOMPARE(_recorder->takeAll(),
             QStringList({"aboutToBeInserted(0,0)", "inserted(0,0)", "dataChanged(0)",
                          "aboutToBeRemoved(1,1)", "removed(1,1)"}));
}

void tst_TaskObserver::nullAndStoppedTasksAreIgnored()
{
    _observer->performTask(nullptr);

    auto *stopped = new StoppableTask(_ledger.get(), _nextId++, _gate.get());
    QVERIFY(stopped->setTaskAboutToBeStopped());
    _observer->performTask(stopped);

    QCOMPARE(model()->rowCount(), 0);
    QVERIFY(!_blockDialog->isVisible());
    QVERIFY(!_timer->isActive());
    QCOMPARE(_recorder->takeAll(), QStringList());
    // The ignored task is neither queued nor deleted: it is still the caller's.
    QCOMPARE(_ledger->deletions(0), 0);
    delete stopped;
    QCOMPARE(_ledger->runs(0), 0);
}

void tst_TaskObserver::completionOfUnknownTask()
{
    // Given a batch is running
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    waitForStarted();
    _recorder->takeAll();

    // When a task that was never performed reports completion, it is finished and deleted,
    // and the batch does not notice
    auto *stranger = new LedgerTask(_ledger.get(), _nextId++);
    QCoreApplication::postEvent(_observer, new TaskPerformedEvent(stranger));
    QCoreApplication::postEvent(_observer, new TaskPerformedEvent(nullptr));
    QTRY_COMPARE(_ledger->deletions(1), 1);
    QCOMPARE(_ledger->afterRuns(1), 1);
    QCOMPARE(_recorder->takeAll(), QStringList());
    QVERIFY(_timer->isActive());
    QCOMPARE(model()->rowCount(), 1);
    ++_performed; // the stranger's afterRun counts too

    _gate->open.release();
    QTRY_COMPARE(model()->rowCount(), 0);
}

void tst_TaskObserver::taskAtAddressOfFinishedTaskIsQueued()
{
    // Given a batch in which one task finished (and was deleted) while another still runs
    auto *first = new RecycledTask(_ledger.get(), _nextId++);
    perform(first);
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    waitForStarted();
    QTRY_COMPARE(_ledger->deletions(0), 1);

    // When a new task of the same batch is allocated at the finished task's address
    auto *second = new RecycledTask(_ledger.get(), _nextId++);
    QCOMPARE(static_cast<void *>(second), static_cast<void *>(first));
    perform(second);

    // Then it is listed and queued like any other task
    QCOMPARE(model()->rowCount(), 3);
    _gate->open.release();
    QTRY_COMPARE(_ledger->totalDeletions(), 3);
    QCOMPARE(_ledger->checkCompleted(0, 3), QByteArray());
    QCOMPARE(model()->rowCount(), 0);
}

void tst_TaskObserver::modelShape()
{
    QCOMPARE(model()->columnCount(), 3);
    QCOMPARE(model()->rowCount(), 0);
    QCOMPARE(model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Task"));
    QCOMPARE(model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Status"));
    QCOMPARE(model()->headerData(2, Qt::Horizontal).toString(), QStringLiteral("Message"));
    QCOMPARE(model()->headerData(3, Qt::Horizontal), QVariant());
    QCOMPARE(model()->headerData(-1, Qt::Horizontal), QVariant());
    QCOMPARE(model()->headerData(0, Qt::Vertical), QVariant());
    QCOMPARE(model()->headerData(0, Qt::Horizontal, Qt::ToolTipRole), QVariant());

    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    QCOMPARE(model()->rowCount(), 1);
    const QModelIndex row = index(0, 0);
    QCOMPARE(model()->rowCount(row), 0);
    QCOMPARE(model()->columnCount(row), 0);
    QVERIFY(!index(0, 3).isValid());
    QVERIFY(!index(1, 0).isValid());
    QCOMPARE(model()->data(QModelIndex()), QVariant());
    for (int column = 0; column < 3; ++column)
        QVERIFY(!(model()->flags(index(0, column)) & Qt::ItemIsEditable));
}

void tst_TaskObserver::rowPerStatus_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("icon");

    QTest::newRow("processing") << 0 << "processing"
                                << "task-ongoing";
    QTest::newRow("fail") << 1 << "fail"
                          << "task-reject";
    QTest::newRow("success") << 2 << "success"
                             << "task-complete";
    QTest::newRow("warning") << 3 << "warning"
                             << "task-attention";
    QTest::newRow("about to be stopped") << 4 << "about to be stop"
                                         << "task-attention";
}

void tst_TaskObserver::rowPerStatus()
{
    QFETCH(int, status);
    QFETCH(QString, text);
    QFETCH(QString, icon);

    // Given row 0 in the wanted state while the batch is still going. Completions are only
    // handled when this thread spins its event loop, so nothing changes while the row is read.
    const auto outcome = static_cast<TaskDescription::TaskStatus>(status);
    quint64 flags = 0;
    if (status == TaskDescription::Processing) {
        flags = 0x5;
        perform(new GateTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Row"),
                             TaskDescription::Success, QString(), flags));
        waitForStarted();
    } else if (status == TaskDescription::AboutToBeStopped) {
        flags = 1;
        perform(new StoppableTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Row")));
        waitForStarted();
        QVERIFY(model()->setData(index(0, 1), 4));
    } else {
        perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("Row"), outcome,
                               QStringLiteral("the message")));
        perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
        waitForStarted();
        QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    }

    QCOMPARE(index(0, 0).data().toString(), QStringLiteral("Row"));
    QCOMPARE(index(0, 0).data(Qt::ToolTipRole).toString(), QStringLiteral("Row"));
    QCOMPARE(qvariant_cast<QIcon>(index(0, 0).data(Qt::DecorationRole)).name(), icon);
    QCOMPARE(index(0, 1).data().toString(), text);
    QCOMPARE(index(0, 1).data(Qt::ToolTipRole).toString(), text);
    QCOMPARE(index(0, 1).data(Qt::EditRole), QVariant(status));
    // The flags while the row has its task, 0 once the task is finished and gone
    const QVariant userRole = index(0, 1).data(Qt::UserRole);
    QCOMPARE(userRole.userType(), qMetaTypeId<quint64>());
    if (status == TaskDescription::Processing || status == TaskDescription::AboutToBeStopped) {
        QCOMPARE(userRole.toULongLong(), flags);
        QVERIFY(index(0, 2).data().toString().isEmpty());
    } else {
        QCOMPARE(userRole.toULongLong(), quint64(0));
        QCOMPARE(index(0, 2).data().toString(), QStringLiteral("the message"));
        QCOMPARE(index(0, 2).data(Qt::ToolTipRole).toString(), QStringLiteral("the message"));
    }
    // Roles the model does not serve
    QCOMPARE(index(0, 0).data(Qt::EditRole), QVariant());
    QCOMPARE(index(0, 1).data(Qt::DecorationRole), QVariant());
    QCOMPARE(index(0, 2).data(Qt::UserRole), QVariant());
    QCOMPARE(index(0, 2).data(Qt::EditRole), QVariant());
    QCOMPARE(index(0, 0).data(Qt::UserRole + 1), QVariant());
    QCOMPARE(index(0, 1).data(Qt::FontRole), QVariant());
}

void tst_TaskObserver::statusAboveFourYieldsNothing()
{
    // A task that ends with an unknown status (it counts neither as running nor as done, so
    // its batch never ends by itself; cleanup() clears it).
    _timer->setInterval(3600 * 1000);
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("odd"),
                           static_cast<TaskDescription::TaskStatus>(7), QStringLiteral("m")));
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    QCOMPARE(model()->rowCount(), 1);
    QCOMPARE(index(0, 0).data().toString(), QStringLiteral("odd"));
    QCOMPARE(index(0, 0).data(Qt::DecorationRole), QVariant());
    QCOMPARE(index(0, 1).data(), QVariant());
    QCOMPARE(index(0, 1).data(Qt::EditRole), QVariant());
    QCOMPARE(index(0, 2).data().toString(), QStringLiteral("m"));
    QVERIFY(_timer->isActive());
    QVERIFY(!_dialog->isVisible());
}

void tst_TaskObserver::stopRequest()
{
    _timer->setInterval(3600 * 1000);
    auto *task = new StoppableTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Long"));
    perform(task);
    waitForStarted();
    QCOMPARE(index(0, 1).data(Qt::UserRole).toULongLong(), quint64(1));
    QSignalSpy changes(model(), &QAbstractItemModel::dataChanged);

    // When the user asks the running task to stop
    QVERIFY(model()->setData(index(0, 1), 4, Qt::EditRole));

    // Then its row says so at once and the request reaches the task
    QCOMPARE(index(0, 1).data().toString(), QStringLiteral("about to be stop"));
    QCOMPARE(index(0, 1).data(Qt::EditRole), QVariant(4));
    QVERIFY(task->taskAboutToBeStopped());
    QCOMPARE(changes.count(), 1);
    QCOMPARE(changes.at(0).at(0).toModelIndex(), index(0, 0));
    QCOMPARE(changes.at(0).at(1).toModelIndex(), index(0, 1));
    QVERIFY(changes.at(0).at(2).value<QVector<int>>().isEmpty());
    QVERIFY(!model()->setData(index(0, 1), 4));
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);

    // and the task, reacting, fails with its own message, which keeps the dialog open
    QTRY_VERIFY(_dialog->isVisible());
    QCOMPARE(index(0, 1).data().toString(), QStringLiteral("fail"));
    QCOMPARE(index(0, 2).data().toString(), QStringLiteral("Terminate by user"));
    QVERIFY(!model()->setData(index(0, 1), 4));
}

void tst_TaskObserver::setDataRefusals_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<int>("role");

    // Rows: 0 finished, 1 running and not stoppable, 2 waiting and stoppable.
    QTest::newRow("finished row") << 0 << 1 << QVariant(4) << int(Qt::EditRole);
    QTest::newRow("task not stoppable") << 1 << 1 << QVariant(4) << int(Qt::EditRole);
    QTest::newRow("column 0") << 2 << 0 << QVariant(4) << int(Qt::EditRole);
    QTest::newRow("column 2") << 2 << 2 << QVariant(4) << int(Qt::EditRole);
    QTest::newRow("value 3") << 2 << 1 << QVariant(3) << int(Qt::EditRole);
    QTest::newRow("value 0") << 2 << 1 << QVariant(0) << int(Qt::EditRole);
    QTest::newRow("value not a number") << 2 << 1 << QVariant("four") << int(Qt::EditRole);
    QTest::newRow("empty value") << 2 << 1 << QVariant() << int(Qt::EditRole);
    QTest::newRow("display role") << 2 << 1 << QVariant(4) << int(Qt::DisplayRole);
    QTest::newRow("user role") << 2 << 1 << QVariant(4) << int(Qt::UserRole);
    QTest::newRow("invalid index") << -1 << -1 << QVariant(4) << int(Qt::EditRole);
}

void tst_TaskObserver::setDataRefusals()
{
    QFETCH(int, row);
    QFETCH(int, column);
    QFETCH(QVariant, value);
    QFETCH(int, role);

    perform(new LedgerTask(_ledger.get(), _nextId++));
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    auto *stoppable = new StoppableTask(_ledger.get(), _nextId++, _gate.get());
    perform(stoppable);
    waitForStarted();
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    QSignalSpy changes(model(), &QAbstractItemModel::dataChanged);

    const QModelIndex target = row < 0 ? QModelIndex() : index(row, column);
    QVERIFY(!model()->setData(target, value, role));

    QCOMPARE(changes.count(), 0);
    QCOMPARE(index(0, 1).data(Qt::EditRole).toInt(), int(TaskDescription::Success));
    QCOMPARE(index(1, 1).data(Qt::EditRole).toInt(), int(TaskDescription::Processing));
    QCOMPARE(index(2, 1).data(Qt::EditRole).toInt(), int(TaskDescription::Processing));
    QVERIFY(!stoppable->taskAboutToBeStopped());

    // The same row accepts the proper request.
    QVERIFY(model()->setData(index(2, 1), QStringLiteral("4")));
    QCOMPARE(index(2, 1).data(Qt::EditRole).toInt(), int(TaskDescription::AboutToBeStopped));
    QVERIFY(stoppable->taskAboutToBeStopped());
    QVERIFY(!model()->setData(index(2, 1), 4));
}

void tst_TaskObserver::clearTasksSignalsTheListLength()
{
    _timer->setInterval(3600 * 1000);
    for (int i = 0; i < 3; ++i)
        perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    waitForStarted();
    _recorder->takeAll();
    QSignalSpy aboutToBeRemoved(model(), &QAbstractItemModel::rowsAboutToBeRemoved);

    _observer->clearTasks();

    QCOMPARE(_recorder->takeAll(), QStringList({"aboutToBeRemoved(3,3)", "removed(3,3)"}));
    QCOMPARE(aboutToBeRemoved.count(), 1);
    QCOMPARE(aboutToBeRemoved.at(0).at(1).toInt(), 3);
    QCOMPARE(aboutToBeRemoved.at(0).at(2).toInt(), 3);
    QCOMPARE(model()->rowCount(), 0);
    // The tasks go on; their completions are finished as unknown tasks.
    _gate->open.release(3);
    QTRY_COMPARE(_ledger->totalDeletions(), 3);
    QCOMPARE(_recorder->takeAll(), QStringList());
}

void tst_TaskObserver::clearingInvalidatesPersistentIndexes()
{
    // Given a view holds on to rows of a batch (its current, pressed or selected row)
    _timer->setInterval(3600 * 1000);
    for (int i = 0; i < 3; ++i)
        perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    const QPersistentModelIndex first(index(0, 0));
    const QPersistentModelIndex last(index(2, 1));
    QVERIFY(first.isValid() && last.isValid());

    // When the list is cleared, announced as (3, 3)
    _observer->clearTasks();

    // Then those rows are gone for the view too, and the next batch's rows are not taken
    // for them
    QVERIFY(!first.isValid());
    QVERIFY(!last.isValid());
    _gate->open.release(3);
    QTRY_COMPARE(_ledger->totalDeletions(), 3);
    _timer->stop();
    _blockDialog->reject();
    _dialog->unblockCloseButton();
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get()));
    QCOMPARE(model()->rowCount(), 1);
    QVERIFY(!first.isValid());
    QVERIFY(!last.isValid());
}

void tst_TaskObserver::widgetParentParentsTheDialogs()
{
    // Given the observer is made anew with a widget parent
    _recorder.reset();
    _guard.reset();
    QPointer<TaskObserverDialog> oldDialog = _dialog;
    QPointer<BlockDialog> oldBlockDialog = _blockDialog;
    _dialog->removeEventFilter(&_dialogShows);
    delete _observer;
    QVERIFY(oldDialog.isNull());
    QVERIFY(oldBlockDialog.isNull());

    auto *window = new QWidget;
    _observer = TaskObserver::instance(window);
    QCOMPARE(_observer->parent(), window);
    _dialog = window->findChild<TaskObserverDialog *>();
    _blockDialog = window->findChild<BlockDialog *>();
    QVERIFY(_dialog);
    QVERIFY(_blockDialog);
    QCOMPARE(_dialog->parentWidget(), window);
    QCOMPARE(_blockDialog->parentWidget(), window);

    // Then tasks run through it as before
    _timer = _observer->findChild<QTimer *>(QStringLiteral("_timer"));
    _timer->setInterval(0);
    _guard.reset(new ModelTesterGuard(model()));
    perform(new LedgerTask(_ledger.get(), _nextId++));
    QVERIFY(_dialog->isVisible());
    QTRY_COMPARE(_ledger->totalDeletions(), 1);
    QTRY_VERIFY(!_dialog->isVisible());

    // and destroying the window destroys the observer with it
    _guard.reset();
    delete window;
    _observer = TaskObserver::instance();
    QVERIFY(_observer->parent() == nullptr);
    _dialog = findTopLevel<TaskObserverDialog>();
    _blockDialog = findTopLevel<BlockDialog>();
    _timer = _observer->findChild<QTimer *>(QStringLiteral("_timer"));
    QVERIFY(_dialog);
    QVERIFY(_blockDialog);
}

QTEST_MAIN(tst_TaskObserver)
#include "tst_taskobserver.moc"
