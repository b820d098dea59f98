#include "task/abstracttask.h"

#include "element/elementdata.h"
#include "task/taskobserver.h"
#include "task/taskperformedevent.h"
#include "task/tsan_p.h"

#include <QCoreApplication>

AbstractTask::AbstractTask(ElementData *data)
    : _taskSpecialFlags(0)
    , _taskAboutToBeStopped(false)
    , _elementData(data)
{ }

AbstractTask::~AbstractTask()
{
    delete _elementData;
}

void AbstractTask::run()
{
    auto *event = new TaskPerformedEvent(this);
    // The event is the hand-over: everything run() wrote into the task (and the event itself)
    // belongs to the user-interface thread once it is posted.
    Tsan::release(this);
    Tsan::release(event);
    QCoreApplication::postEvent(TaskObserver::instance(), event, Qt::NormalEventPriority);
}

quint64 AbstractTask::taskSpecialFlags() const
{
    return _taskSpecialFlags;
}

bool AbstractTask::taskAboutToBeStopped() const
{
    return Tsan::loadFlag(&_taskAboutToBeStopped);
}

bool AbstractTask::setTaskAboutToBeStopped()
{
    if (!(_taskSpecialFlags & 1))
        return false;
    if (taskAboutToBeStopped())
        return true;
    Tsan::storeFlag(&_taskAboutToBeStopped, true);
    return true;
}

TaskDescription &AbstractTask::taskDescription()
{
    return _taskDescription;
}

const TaskDescription &AbstractTask::taskDescription() const
{
    return _taskDescription;
}
