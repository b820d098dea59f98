#include "task/dummytask.h"
#include "task/stoppabledummytask.h"
#include "task/taskobserver.h"
#include "task/taskobservermodel.h"
#include "testtasks.h"

#include <QtTest>

/*
 * The dummy tasks sleep 5 s per pass in their bodies, so this executable runs apart from the
 * other task tests (CTest label "slow") and all three tasks run at once on three workers.
 */
class tst_DummyTasks : public QObject
{
    Q_OBJECT

private slots:
    void outcomesAndStop();
};

void tst_DummyTasks::outcomesAndStop()
{
    Ledger ledger(1);
    Pool pool(3);
    QVERIFY(Pool::open(new Task(&ledger, 0)));
    TaskObserverModel *model = TaskObserver::instance()->model();
    ModelTesterGuard tester(model);
    QStringList finished;
    connect(model, &QAbstractItemModel::dataChanged, this, [&finished](const QModelIndex &index) {
        const QStringList row {index.siblingAtColumn(0).data().toString(),
                               index.siblingAtColumn(1).data().toString(),
                               index.siblingAtColumn(2).data().toString()};
        finished << row.join(QLatin1Char('|'));
    });

    TaskObserver::instance()->performTask(new DummyTask(nullptr, true));
    TaskObserver::instance()->performTask(new DummyTask(nullptr, false));
    TaskObserver::instance()->performTask(new StoppableDummyTask(nullptr));
    const QModelIndex stoppable = model->index(2, 1);
    QCOMPARE(stoppable.data(Qt::UserRole).toULongLong(), 1ull);
    QVERIFY(model->setData(stoppable, 4, Qt::EditRole));

    // Ten passes would take 50 s: an answer well before that shows the stop was heard.
    QTRY_COMPARE_WITH_TIMEOUT(finished.size(), 4, 30000);
    finished.sort();
    QCOMPARE(finished,
             QStringList({"Dummy task|fail|ERROR!!!\nERROR!!!\nERROR!!!\nERROR!!!\n",
                          "Dummy task|success|", "Stoppable dummy task|about to be stop|",
                          "Stoppable dummy task|fail|Terminate by user"}));
}

QTEST_MAIN(tst_DummyTasks)
#include "tst_dummytasks.moc"
