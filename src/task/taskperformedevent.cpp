#include "task/taskperformedevent.h"

TaskPerformedEvent::TaskPerformedEvent(AbstractTask *task)
    : QEvent(static_cast<QEvent::Type>(Type))
    , _task(task)
{ }

TaskPerformedEvent::~TaskPerformedEvent() = default;

AbstractTask *TaskPerformedEvent::task() const
{
    return _task;
}
