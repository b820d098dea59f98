// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/importtask.h"

#include "widgets/vieweditelementwidget.h"

ImportTask::ImportTask(ElementWidget *widget, ElementData *data)
    : ElementWidgetTask(widget, data)
{ }

void ImportTask::afterRun()
{
    if (_taskDescription.status() == TaskDescription::Fail)
        return;
    if (auto *form = qobject_cast<ViewEditElementWidget *>(_elementWidget))
        form->afterSuccessfulImport(_elementData);
}
