// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/readpropertyheavytask.h"

#include "task/taskkinds_p.h"
#include "widgets/vieweditelementwidget.h"

ReadPropertyHeavyTask::ReadPropertyHeavyTask(Element *element)
    : ElementTask(element, nullptr)
{ }

void ReadPropertyHeavyTask::afterRun()
{
    if (!_element || _taskDescription.status() == TaskDescription::Fail)
        return;
    if (ViewEditElementWidget *form = TaskKinds::viewEditWidget(_element, ViewEditRole))
        form->afterSuccessfulRead(_element, _elementData);
}
