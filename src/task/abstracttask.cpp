// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/abstracttask.h"

#include "element/elementdata.h"
#include "task/taskobserver.h"
#include "task/taskpool_p.h"
#include "task/tsan_p.h"

AbstractTask::AbstractTask(ElementData *data)
    : _taskSpecialFlags(0)
    , _taskAboutToBeStopped(false)
    , _elementData(data)
{ }

AbstractTask::~AbstractTask()
{
    delete _elementData;
}

const AbstractTask *&TaskPool::lastHandedOver()
{
    static thread_local const AbstractTask *task = nullptr;
    return task;
}

void AbstractTask::run()
{
    TaskPool::lastHandedOver() = this;
    // With the observer gone (the application is shutting down) nobody is left to finish the
    // task: it goes like a task still queued when the pool stops, without afterRun().
    if (!TaskObserver::postTaskPerformed(this))
        delete this;
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
