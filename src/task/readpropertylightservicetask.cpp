// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/readpropertylightservicetask.h"

#include "element/element.h"
#include "element/servicelightelementdata.h"

ReadPropertyLightServiceTask::ReadPropertyLightServiceTask(Element *element)
    : ServiceTask(element, new ServiceLightElementData)
{
    _command = QStringLiteral("status");
}

void ReadPropertyLightServiceTask::afterRun()
{
    if (!_element || _taskDescription.status() == TaskDescription::Fail)
        return;
    auto *own = dynamic_cast<ServiceLightElementData *>(_element->elementData());
    auto *answer = dynamic_cast<ServiceLightElementData *>(_elementData);
    if (own && answer) {
        *own = *answer;
        _element->emitNodeDataChanged();
    }
}
