#include "element/elementdata.h"
#include "task/abstracttask.h"
#include "task/startevent.h"
#include "task/taskdescription.h"
#include "task/taskperformedevent.h"

#include <QtTest>

namespace {

int elementDataDeletions = 0;

class CountedElementData : public ElementData
{
public:
    ~CountedElementData() override { ++elementDataDeletions; }
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

/** The task's value types: description, base task, and the two custom events. */
class tst_AbstractTask : public QObject
{
    Q_OBJECT

private slots:
    void descriptionDefaults();
    void descriptionCopies();
    void statusNumbers();
    void taskDefaults();
    void taskOwnsItsElementData();
    void setTaskAboutToBeStopped_data();
    void setTaskAboutToBeStopped();
    void taskDescriptionIsTheMember();
    void startEvent();
    void taskPerformedEvent();
};

void tst_AbstractTask::descriptionDefaults()
{
    const TaskDescription description;
    QVERIFY(description.description().isEmpty());
    QVERIFY(description.message().isEmpty());
    QCOMPARE(description.status(), TaskDescription::Processing);
}

void tst_AbstractTask::descriptionCopies()
{
    TaskDescription original;
    original.setDescription(QStringLiteral("Export to HTML"));
    original.setStatus(TaskDescription::Warning);
    original.setMessage(QStringLiteral("half done"));

    TaskDescription copy(original);
    TaskDescription assigned;
    assigned = original;
    original.setMessage(QStringLiteral("changed"));

    for (const TaskDescription &d : {copy, assigned}) {
        QCOMPARE(d.description(), QStringLiteral("Export to HTML"));
        QCOMPARE(d.status(), TaskDescription::Warning);
        QCOMPARE(d.message(), QStringLiteral("half done"));
    }
}

void tst_AbstractTask::statusNumbers()
{
    QCOMPARE(int(TaskDescription::Processing), 0);
    QCOMPARE(int(TaskDescription::Fail), 1);
    QCOMPARE(int(TaskDescription::Success), 2);
    QCOMPARE(int(TaskDescription::Warning), 3);
    QCOMPARE(int(TaskDescription::AboutToBeStopped), 4);
    QCOMPARE(sizeof(TaskDescription::TaskStatus), size_t(4));
}

void tst_AbstractTask::taskDefaults()
{
    Task task(nullptr, 0);
    QCOMPARE(task.taskSpecialFlags(), quint64(0));
    QVERIFY(!task.taskAboutToBeStopped());
    QCOMPARE(task.taskDescription().status(), TaskDescription::Processing);
    QVERIFY(task.taskDescription().description().isEmpty());
}

void tst_AbstractTask::taskOwnsItsElementData()
{
    elementDataDeletions = 0;
    delete new Task(new CountedElementData, 0);
    QCOMPARE(elementDataDeletions, 1);
    delete new Task(nullptr, 0);
    QCOMPARE(elementDataDeletions, 1);
}

void tst_AbstractTask::setTaskAboutToBeStopped_data()
{
    QTest::addColumn<quint64>("flags");
    QTest::addColumn<bool>("stoppable");
    QTest::newRow("no flags: not stoppable") << quint64(0) << false;
    QTest::newRow("other bits only: not stoppable") << quint64(0xFEull << 32 | 0x6) << false;
    QTest::newRow("bit 0: stoppable") << quint64(1) << true;
    QTest::newRow("bit 0 among others: stoppable") << quint64(0x8000000000000003ull) << true;
}

void tst_AbstractTask::setTaskAboutToBeStopped()
{
    QFETCH(quint64, flags);
    QFETCH(bool, stoppable);

    Task task(nullptr, flags);
    QCOMPARE(task.taskSpecialFlags(), flags);
    QCOMPARE(task.setTaskAboutToBeStopped(), stoppable);
    QCOMPARE(task.taskAboutToBeStopped(), stoppable);
    // Asked again: same answer, and the flag is never cleared.
    QCOMPARE(task.setTaskAboutToBeStopped(), stoppable);
    QCOMPARE(task.taskAboutToBeStopped(), stoppable);
}

void tst_AbstractTask::taskDescriptionIsTheMember()
{
    Task task(nullptr, 0);
    task.taskDescription().setDescription(QStringLiteral("Dummy task"));
    task.taskDescription().setStatus(TaskDescription::Fail);
    const Task &constTask = task;
    QCOMPARE(&constTask.taskDescription(), &task.taskDescription());
    QCOMPARE(constTask.taskDescription().description(), QStringLiteral("Dummy task"));
    QCOMPARE(constTask.taskDescription().status(), TaskDescription::Fail);
}

void tst_AbstractTask::startEvent()
{
    const StartEvent event(QStringLiteral("/usr/lib/ovt/plugins/users.so"));
    QCOMPARE(int(event.type()), 1001);
    QCOMPARE(int(event.type()), QEvent::User + 1);
    QCOMPARE(int(StartEvent::Type), 1001);
    QCOMPARE(event.pluginPath(), QStringLiteral("/usr/lib/ovt/plugins/users.so"));
}

void tst_AbstractTask::taskPerformedEvent()
{
    Task task(nullptr, 0);
    {
        const TaskPerformedEvent event(&task);
        QCOMPARE(int(event.type()), 1002);
        QCOMPARE(int(TaskPerformedEvent::Type), 1002);
        QCOMPARE(event.task(), &task);
    }
    // The event does not own the task: it is still here.
    QCOMPARE(task.taskSpecialFlags(), quint64(0));
    const TaskPerformedEvent none(nullptr);
    QCOMPARE(none.task(), nullptr);
}

QTEST_GUILESS_MAIN(tst_AbstractTask)
#include "tst_abstracttask.moc"
