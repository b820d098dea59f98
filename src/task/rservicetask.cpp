// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/rservicetask.h"

#include "task/taskkinds_p.h"

RServiceTask::RServiceTask(Element *element)
    : ServiceTask(element)
{ }

void RServiceTask::afterRun()
{
    if (!_element)
        return;
    if (TaskKinds::isParanoid(_element) || _taskDescription.status() == TaskDescription::Fail)
        TaskKinds::performIfOffered(_element, ReadOperation);
}
