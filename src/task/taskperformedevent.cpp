// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

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
