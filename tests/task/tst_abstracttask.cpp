#include "element/elementdata.h"
#include "task/abstracttask.h"

#include <QtTest>

namespace {

int dataDeletions = 0;

class CountedData : public ElementData
{
public:
    ~CountedData() override { ++dataDeletions; }
};

class Task : public AbstractTask
{
public:
    Task(ElementData *data, quint64 flags)
        : AbstractTask(data)
    {
        _taskSpecialFlags = flags;
    }
    void afterRun() override { }
};

} // namespace

class tst_AbstractTask : public QObject
{
    Q_OBJECT

private slots:
    void ownsItsElementData();
    void stopRequest_data();
    void stopRequest();
};

void tst_AbstractTask::ownsItsElementData()
{
    delete new Task(new CountedData, 0);
    delete new Task(nullptr, 0);
    QCOMPARE(dataDeletions, 1);
}

void tst_AbstractTask::stopRequest_data()
{
    QTest::addColumn<quint64>("flags");
    QTest::addColumn<bool>("stoppable");
    QTest::newRow("no flags") << quint64(0) << false;
    QTest::newRow("other bits only") << quint64(0xFEull << 32 | 0x6) << false;
    QTest::newRow("bit 0 among others") << quint64(0x8000000000000003ull) << true;
}

void tst_AbstractTask::stopRequest()
{
    QFETCH(quint64, flags);
    QFETCH(bool, stoppable);

    Task task(nullptr, flags);
    // Asked twice: the same answer both times, and the flag is never cleared.
    for (int i = 0; i < 2; ++i) {
        QCOMPARE(task.setTaskAboutToBeStopped(), stoppable);
        QCOMPARE(task.taskAboutToBeStopped(), stoppable);
    }
}

QTEST_GUILESS_MAIN(tst_AbstractTask)
#include "tst_abstracttask.moc"
