#include "task/blockdialog.h"
#include "task/taskobserver.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "testtasks.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QStackedWidget>
#include <QTimer>
#include <QTreeView>
#include <QtTest>

#include <memory>

namespace {

template<typename T> T *findTopLevel()
{
    const auto widgets = QApplication::topLevelWidgets();
    for (QWidget *widget : widgets) {
        if (auto *found = qobject_cast<T *>(widget))
            return found;
    }
    return nullptr;
}

// Rows of the mixed batch built by makeMixedBatch().
enum MixedRow {
    SucceededRow, // "Copy", success
    FailedRow, // "Delete", fail, "permission denied"
    WarnedRow, // "Update", warning, "partly done"
    RunningStoppableRow, // "Import", running at the gate, stoppable
    WaitingRow, // "Wait", queued, not stoppable
    WaitingStoppableRow, // "Export", queued, stoppable
    StopRequestedRow, // "Print", queued, stoppable, asked to stop
    MixedRows
};

} // namespace

/*
 * The task observer dialog and the block dialog, driven through the real observer with one
 * worker (tasks finish in the order performed). The observer's timer is set to 0 so that the
 * dialog opens with the first task of a batch.
 */
class tst_TaskObserverDialog : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase();
    void init();
    void cleanup();

    void form();
    void buttonsFollowSelection_data();
    void buttonsFollowSelection();
    void buttonsFollowTaskFinishingWhileSelected();
    void stopButtonAsksTaskToStop();
    void escapeAndCloseDoNothingWhileTasksRun();
    void messagePage_data();
    void messagePage();
    void doubleClick_data();
    void doubleClick();
    void reopeningShowsListPageWithNothingSelected();
    void geometryIsSavedAndRestored();
    void blockDialogHoldsInputInvisibly();

private:
    void perform(AbstractTask *task);
    void makeMixedBatch();
    void clickRow(int row);
    QModelIndex index(int row, int column = 0) const
    {
        return _observer->model()->index(row, column);
    }

    TaskObserver *_observer = nullptr;
    TaskObserverDialog *_dialog = nullptr;
    BlockDialog *_blockDialog = nullptr;
    QTimer *_timer = nullptr;
    QTreeView *_view = nullptr;
    QPushButton *_more = nullptr;
    QPushButton *_stop = nullptr;
    QDialogButtonBox *_buttonBox = nullptr;
    QStackedWidget *_stack = nullptr;
    QPlainTextEdit *_text = nullptr;
    std::unique_ptr<Pool> _pool;
    std::unique_ptr<TaskLedger> _ledger;
    std::unique_ptr<Gate> _gate;
    std::unique_ptr<ModelTesterGuard> _guard;
    int _nextId = 0;
    int _performed = 0;
};

void tst_TaskObserverDialog::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_taskobserverdialog"));
    // A fresh settings file: the geometry test writes to it.
    QSettings().clear();

    _observer = TaskObserver::instance();
    _dialog = findTopLevel<TaskObserverDialog>();
    _blockDialog = findTopLevel<BlockDialog>();
    _timer = _observer->findChild<QTimer *>(QStringLiteral("_timer"));
    QVERIFY(_dialog && _blockDialog && _timer);
    _view = _dialog->findChild<QTreeView *>(QStringLiteral("_taskTreeView"));
    _more = _dialog->findChild<QPushButton *>(QStringLiteral("_morePushButton"));
    _stop = _dialog->findChild<QPushButton *>(QStringLiteral("_stopPushButton"));
    _buttonBox = _dialog->findChild<QDialogButtonBox *>(QStringLiteral("_buttonBox"));
    _stack = _dialog->findChild<QStackedWidget *>(QStringLiteral("_stackedWidget"));
    _text = _dialog->findChild<QPlainTextEdit *>(QStringLiteral("_errorPlainTextEdit"));
    QVERIFY(_view && _more && _stop && _buttonBox && _stack && _text);

    _pool.reset(new Pool(1));
    TaskLedger probeLedger(1);
    QVERIFY(Pool::waitUntilOpen(new LedgerTask(&probeLedger, 0)));
    QTRY_COMPARE(probeLedger.deletions(0), 1);
}

void tst_TaskObserverDialog::cleanupTestCase()
{
    _pool.reset();
    delete _observer;
}

void tst_TaskObserverDialog::init()
{
    _ledger.reset(new TaskLedger(64));
    _gate.reset(new Gate);
    _nextId = 0;
    _performed = 0;
    _timer->setInterval(0);
    _guard.reset(new ModelTesterGuard(_observer->model()));
}

void tst_TaskObserverDialog::cleanup()
{
    _gate->open.release(64);
    QTRY_COMPARE_WITH_TIMEOUT(_ledger->totalAfterRuns(), _performed, 20000);
    QVERIFY(_buttonBox->isEnabled());
    if (_dialog->isVisible())
        _dialog->reject();
    QVERIFY(!_dialog->isVisible());
    QCOMPARE(_observer->model()->rowCount(), 0);
    _guard.reset();
    _gate.reset();
    _ledger.reset();
}

void tst_TaskObserverDialog::perform(AbstractTask *task)
{
    ++_performed;
    _observer->performTask(task);
}

void tst_TaskObserverDialog::makeMixedBatch()
{
    TaskLedger *ledger = _ledger.get();
    Gate *gate = _gate.get();
    perform(new LedgerTask(ledger, _nextId++, QStringLiteral("Copy")));
    perform(new LedgerTask(ledger, _nextId++, QStringLiteral("Delete"), TaskDescription::Fail,
                           QStringLiteral("permission denied")));
    perform(new LedgerTask(ledger, _nextId++, QStringLiteral("Update"), TaskDescription::Warning,
                           QStringLiteral("partly done")));
    perform(new StoppableTask(ledger, _nextId++, gate, QStringLiteral("Import")));
    perform(new GateTask(ledger, _nextId++, gate, QStringLiteral("Wait")));
    perform(new StoppableTask(ledger, _nextId++, gate, QStringLiteral("Export")));
    perform(new StoppableTask(ledger, _nextId++, gate, QStringLiteral("Print")));
    QVERIFY(_gate->started.tryAcquire(1, 10000));
    QTRY_COMPARE(_ledger->totalAfterRuns(), 3);
    QVERIFY(_observer->model()->setData(index(StopRequestedRow, 1), 4));
    QVERIFY(_dialog->isVisible());
    QVERIFY(QTest::qWaitForWindowExposed(_dialog));
}

void tst_TaskObserverDialog::clickRow(int row)
{
    const QRect rect = _view->visualRect(index(row));
    QVERIFY(rect.isValid());
    QTest::mouseClick(_view->viewport(), Qt::LeftButton, {}, rect.center());
    QCOMPARE(_view->selectionModel()->selectedRows(0), QModelIndexList({index(row)}));
}

void tst_TaskObserverDialog::form()
{
    QCOMPARE(_dialog->objectName(), QStringLiteral("TaskObserverDialog"));
    QCOMPARE(_dialog->windowTitle(), QStringLiteral("Tasks"));
    QVERIFY(_dialog->isModal());
    const Qt::WindowFlags flags = _dialog->windowFlags();
    QVERIFY(flags & Qt::CustomizeWindowHint);
    QVERIFY(!(flags & Qt::WindowCloseButtonHint));
    QVERIFY(!(flags & Qt::WindowMinimizeButtonHint));
    QVERIFY(!(flags & Qt::WindowMaximizeButtonHint));
    QVERIFY(!(flags & Qt::WindowContextHelpButtonHint));

    auto *grid = _dialog->findChild<QGridLayout *>(QStringLiteral("gridLayout_2"));
    QVERIFY(grid);
    QCOMPARE(_dialog->layout(), grid);
    auto place = [grid](QWidget *widget) {
        int row, column, rowSpan, columnSpan;
        grid->getItemPosition(grid->indexOf(widget), &row, &column, &rowSpan, &columnSpan);
        return QList<int>({row, column, columnSpan});
    };
    QCOMPARE(place(_stack), QList<int>({0, 0, 3}));
    QCOMPARE(place(_more), QList<int>({1, 0, 1}));
    QCOMPARE(place(_stop), QList<int>({1, 1, 1}));
    QCOMPARE(place(_buttonBox), QList<int>({1, 2, 1}));

    auto *taskPage = _dialog->findChild<QWidget *>(QStringLiteral("_taskWidget"));
    auto *errorPage = _dialog->findChild<QWidget *>(QStringLiteral("_errorWidget"));
    QCOMPARE(_stack->widget(0), taskPage);
    QCOMPARE(_stack->widget(1), errorPage);
    QCOMPARE(_stack->currentIndex(), 0);
    QCOMPARE(taskPage->layout()->objectName(), QStringLiteral("_taskGridLayout"));
    QCOMPARE(errorPage->layout()->objectName(), QStringLiteral("gridLayout"));
    QCOMPARE(_view->parentWidget(), taskPage);
    QCOMPARE(_text->parentWidget(), errorPage);

    QCOMPARE(_view->model(), _observer->model());
    QCOMPARE(_view->selectionBehavior(), QAbstractItemView::SelectRows);
    QVERIFY(!_view->rootIsDecorated());
    QVERIFY(_view->header()->isSectionHidden(2));
    QVERIFY(!_view->header()->isSectionHidden(0));
    QVERIFY(!_view->header()->isSectionHidden(1));
    QVERIFY(_text->isReadOnly());
    // While shown, every section resizes to its contents.
    _dialog->show();
    for (int section = 0; section < 3; ++section)
        QCOMPARE(_view->header()->sectionResizeMode(section), QHeaderView::ResizeToContents);
    _dialog->hide();

    QCOMPARE(_more->text(), QStringLiteral("More"));
    QVERIFY(_more->isCheckable());
    QVERIFY(!_more->isEnabled());
    QCOMPARE(_stop->text(), QStringLiteral("Stop"));
    QCOMPARE(_stop->toolTip(), QStringLiteral("Stop task"));
    QVERIFY(!_stop->isEnabled());
    QCOMPARE(_buttonBox->standardButtons(), QDialogButtonBox::Close);
    QCOMPARE(_buttonBox->orientation(), Qt::Horizontal);
}

void tst_TaskObserverDialog::buttonsFollowSelection_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("more");
    QTest::addColumn<bool>("stop");

    QTest::newRow("success row: neither") << int(SucceededRow) << false << false;
    QTest::newRow("fail row: More") << int(FailedRow) << true << false;
    QTest::newRow("warning row: More") << int(WarnedRow) << true << false;
    QTest::newRow("running stoppable row: Stop") << int(RunningStoppableRow) << false << true;
    QTest::newRow("waiting row, not stoppable: neither") << int(WaitingRow) << false << false;
    QTest::newRow("waiting stoppable row: Stop") << int(WaitingStoppableRow) << false << true;
    QTest::newRow("row asked to stop: neither") << int(StopRequestedRow) << false << false;
}

void tst_TaskObserverDialog::buttonsFollowSelection()
{
    QFETCH(int, row);
    QFETCH(bool, more);
    QFETCH(bool, stop);

    makeMixedBatch();
    QVERIFY(!_more->isEnabled());
    QVERIFY(!_stop->isEnabled());
    // The columns fit their contents, the status column included.
    const QAbstractItemView *view = _view;
    QVERIFY(_view->columnWidth(0) >= view->sizeHintForColumn(0));
    QVERIFY(_view->columnWidth(1) >= view->sizeHintForColumn(1));

    clickRow(row);
    QCOMPARE(_more->isEnabled(), more);
    QCOMPARE(_stop->isEnabled(), stop);

    // Clearing the selection disables both again
    _view->clearSelection();
    QVERIFY(!_more->isEnabled());
    QVERIFY(!_stop->isEnabled());
}

void tst_TaskObserverDialog::buttonsFollowTaskFinishingWhileSelected()
{
    // Given a running stoppable task is selected
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Sync"),
                         TaskDescription::Warning, QStringLiteral("two files skipped"), 1));
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Hold")));
    QVERIFY(_gate->started.tryAcquire(1, 10000));
    QVERIFY(QTest::qWaitForWindowExposed(_dialog));
    clickRow(0);
    QVERIFY(_stop->isEnabled());
    QVERIFY(!_more->isEnabled());

    // When it finishes with a warning, the buttons follow
    _gate->open.release();
    QTRY_COMPARE(_ledger->totalAfterRuns(), 1);
    QVERIFY(_more->isEnabled());
    QVERIFY(!_stop->isEnabled());
}

void tst_TaskObserverDialog::stopButtonAsksTaskToStop()
{
    makeMixedBatch();
    clickRow(RunningStoppableRow);
    QVERIFY(_stop->isEnabled());

    QTest::mouseClick(_stop, Qt::LeftButton);

    QCOMPARE(index(RunningStoppableRow, 1).data().toString(), QStringLiteral("about to be stop"));
    QVERIFY(!_stop->isEnabled());
    // The task reacts and fails with its own message.
    QTRY_COMPARE(index(RunningStoppableRow, 1).data().toString(), QStringLiteral("fail"));
    QCOMPARE(index(RunningStoppableRow, 2).data().toString(), QStringLiteral("Terminate by user"));
    QVERIFY(_more->isEnabled());
}

void tst_TaskObserverDialog::escapeAndCloseDoNothingWhileTasksRun()
{
    // Given a task is running and the dialog is shown
    perform(new GateTask(_ledger.get(), _nextId++, _gate.get(), QStringLiteral("Slow"),
                         TaskDescription::Fail, QStringLiteral("broken")));
    QVERIFY(_gate->started.tryAcquire(1, 10000));
    QVERIFY(QTest::qWaitForWindowExposed(_dialog));
    QVERIFY(!_buttonBox->isEnabled());

    // When the user presses Escape, asks the window to close or clicks the Close button
    QTest::keyClick(_dialog, Qt::Key_Escape);
    QVERIFY(!_dialog->close());
    QTest::mouseClick(_buttonBox->button(QDialogButtonBox::Close), Qt::LeftButton);

    // Then the dialog stays with its rows
    QVERIFY(_dialog->isVisible());
    QCOMPARE(_observer->model()->rowCount(), 1);

    // Once the (failed) batch is over, Escape closes it and the list is cleared
    _gate->open.release();
    QTRY_VERIFY(_buttonBox->isEnabled());
    QVERIFY(_dialog->isVisible());
    QTest::keyClick(_dialog, Qt::Key_Escape);
    QVERIFY(!_dialog->isVisible());
    QCOMPARE(_observer->model()->rowCount(), 0);

    // and so does a close request of the window system after the next failed batch
    perform(new LedgerTask(_ledger.get(), _nextId++, QString(), TaskDescription::Fail));
    QTRY_VERIFY(_buttonBox->isEnabled());
    QVERIFY(_dialog->close());
    QVERIFY(!_dialog->isVisible());
    QCOMPARE(_observer->model()->rowCount(), 0);
}

void tst_TaskObserverDialog::messagePage_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("message");
    QTest::newRow("failed task") << int(FailedRow) << "Error: Delete"
                                 << "permission denied";
    QTest::newRow("warned task") << int(WarnedRow) << "Warning: Update"
                                 << "partly done";
}

void tst_TaskObserverDialog::messagePage()
{
    QFETCH(int, row);
    QFETCH(QString, title);
    QFETCH(QString, message);

    makeMixedBatch();
    clickRow(row);

    // More shows the message page
    QTest::mouseClick(_more, Qt::LeftButton);
    QVERIFY(_more->isChecked());
    QCOMPARE(_stack->currentIndex(), 1);
    QCOMPARE(_dialog->windowTitle(), title);
    QCOMPARE(_text->toPlainText(), message);

    // and unchecking it goes back to the list
    QTest::mouseClick(_more, Qt::LeftButton);
    QVERIFY(!_more->isChecked());
    QCOMPARE(_stack->currentIndex(), 0);
    QCOMPARE(_dialog->windowTitle(), QStringLiteral("Tasks"));
    QVERIFY(_text->toPlainText().isEmpty());
}

void tst_TaskObserverDialog::doubleClick_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<bool>("opensMessage");
    QTest::newRow("failed row opens its message") << int(FailedRow) << true;
    QTest::newRow("warned row opens its message") << int(WarnedRow) << true;
    QTest::newRow("successful row does nothing") << int(SucceededRow) << false;
    QTest::newRow("running row does nothing") << int(RunningStoppableRow) << false;
}

void tst_TaskObserverDialog::doubleClick()
{
    QFETCH(int, row);
    QFETCH(bool, opensMessage);

    makeMixedBatch();
    // A double-click as the window system delivers it: press and release, then the
    // double-click event (on the row the first press selected) and its release.
    const QPoint centre = _view->visualRect(index(row)).center();
    QTest::mouseClick(_view->viewport(), Qt::LeftButton, {}, centre);
    QTest::mouseDClick(_view->viewport(), Qt::LeftButton, {}, centre);

    QCOMPARE(_more->isChecked(), opensMessage);
    QCOMPARE(_stack->currentIndex(), opensMessage ? 1 : 0);
    QCOMPARE(_dialog->windowTitle().startsWith(QLatin1String("Tasks")), !opensMessage);
}

void tst_TaskObserverDialog::reopeningShowsListPageWithNothingSelected()
{
    // Given the message page of a failed task is shown when the dialog is closed
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("Remove"),
                           TaskDescription::Fail, QStringLiteral("busy")));
    QTRY_VERIFY(_buttonBox->isEnabled());
    QVERIFY(QTest::qWaitForWindowExposed(_dialog));
    clickRow(0);
    QTest::mouseClick(_more, Qt::LeftButton);
    QCOMPARE(_stack->currentIndex(), 1);
    QTest::keyClick(_dialog, Qt::Key_Escape);
    QVERIFY(!_dialog->isVisible());

    // Closing returns to the list page, unchecks More and disables both buttons
    QCOMPARE(_stack->currentIndex(), 0);
    QCOMPARE(_dialog->windowTitle(), QStringLiteral("Tasks"));
    QVERIFY(!_more->isChecked());
    QVERIFY(!_more->isEnabled());
    QVERIFY(!_stop->isEnabled());

    // When the dialog opens again for the next batch, nothing is selected
    perform(new LedgerTask(_ledger.get(), _nextId++, QStringLiteral("Again"), TaskDescription::Fail,
                           QStringLiteral("busy")));
    QVERIFY(_dialog->isVisible());
    QTRY_VERIFY(_buttonBox->isEnabled());
    QCOMPARE(_stack->currentIndex(), 0);
    QVERIFY(!_view->selectionModel()->hasSelection());
    QVERIFY(!_view->selectionModel()->currentIndex().isValid());
    QVERIFY(!_more->isEnabled());
    QVERIFY(!_stop->isEnabled());
}

void tst_TaskObserverDialog::geometryIsSavedAndRestored()
{
    const QString key = QStringLiteral("taskObserverDialog/taskObserverDialogGeometry");
    QSettings().remove(key);
    {
        TaskObserverDialog dialog(_observer, nullptr);
        dialog.show();
        QVERIFY(QTest::qWaitForWindowExposed(&dialog));
        dialog.resize(640, 410);
        QTRY_COMPARE(dialog.size(), QSize(640, 410));
    }
    QVERIFY(QSettings().contains(key));
    QVERIFY(!QSettings().value(key).toByteArray().isEmpty());

    TaskObserverDialog restored(_observer, nullptr);
    QCOMPARE(restored.size(), QSize(640, 410));
}

void tst_TaskObserverDialog::blockDialogHoldsInputInvisibly()
{
    // The observer gives the block dialog the application's window as parent; open() makes
    // it modal to that window.
    QWidget window;
    auto *button = new QPushButton(QStringLiteral("Press"), &window);
    button->resize(100, 30);
    BlockDialog block(&window);
    QVERIFY(block.isModal());
    QVERIFY(block.testAttribute(Qt::WA_DontShowOnScreen));
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QSignalSpy clicks(button, &QPushButton::clicked);
    QWindow *handle = window.windowHandle();
    const QPoint centre = button->geometry().center();

    // While the block dialog is open, clicks reach no other window
    block.open();
    QVERIFY(block.isVisible());
    QCOMPARE(QApplication::activeModalWidget(), &block);
    QTest::mouseClick(handle, Qt::LeftButton, {}, centre);
    QCOMPARE(clicks.count(), 0);

    // and once it is rejected they do again
    block.reject();
    QVERIFY(!block.isVisible());
    QTest::mouseClick(handle, Qt::LeftButton, {}, centre);
    QCOMPARE(clicks.count(), 1);
}

QTEST_MAIN(tst_TaskObserverDialog)
#include "tst_taskobserverdialog.moc"
