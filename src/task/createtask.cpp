// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/createtask.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "task/taskkinds_p.h"
#include "widgets/vieweditelementwidget.h"

CreateTask::CreateTask(Element *element, ElementData *data)
    : ElementTask(element, data)
{ }

void CreateTask::afterRun()
{
    if (!_element)
        return;
    const bool failed = _taskDescription.status() == TaskDescription::Fail;
    if (TaskKinds::isParanoid(_element)) {
        if (!(_element->availableOperations() & ReadContentOperation))
            return;
        ElementData *select = nullptr;
        if (!failed) {
            // Only the name travels: the re-read selects the new child by it.
            select = new ElementData;
            select->setName(_elementData ? _elementData->name() : QString());
        }
        _element->performOperation(ReadContentOperation, select, 0);
        return;
    }
    if (failed)
        return;
    if (ViewEditElementWidget *form = TaskKinds::viewEditWidget(_element, CreateRole))
        form->setUnchanged();
}
