// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/startstopservicetask.h"

#include "element/element.h"
#include "element/servicelightelementdata.h"
#include "task/taskkinds_p.h"

StartStopServiceTask::StartStopServiceTask(Element *element, bool targetState)
    : ServiceTask(element)
    , _targetState(targetState)
{ }

void StartStopServiceTask::afterRun()
{
    if (!_element)
        return;
    if (TaskKinds::isParanoid(_element)) {
        TaskKinds::performIfOffered(_element, ReadOperation);
        return;
    }
    if (_taskDescription.status() == TaskDescription::Fail)
        return;
    if (ElementData *data = _element->elementData()) {
        auto *light = dynamic_cast<ServiceLightElementData *>(data);
        if (light && !light->contains(QStringLiteral("state")))
            light->setState(_targetState);
        else
            data->insert(QStringLiteral("state"), _targetState);
    }
    _element->emitNodeDataChanged();
}
