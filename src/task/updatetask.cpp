// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/updatetask.h"

#include "element/element.h"
#include "plugin/module.h"
#include "task/taskkinds_p.h"
#include "widgets/vieweditelementwidget.h"

UpdateTask::UpdateTask(Element *element, ElementData *data)
    : ElementTask(element, data)
{ }

void UpdateTask::afterRun()
{
    if (!_element)
        return;
    // Modules written before the preference existed relied on the re-read after an update, so
    // a module without the value still gets it.
    const QVariant paranoid = _element->module().getData(QStringLiteral("paranoid"));
    if (!paranoid.isValid() || paranoid.toBool()) {
        TaskKinds::performIfOffered(_element, ReadOperation);
        return;
    }
    ViewEditElementWidget *form = TaskKinds::viewEditWidget(_element, ViewEditRole);
    if (form && _taskDescription.status() != TaskDescription::Fail) {
        form->afterSuccessfulUpdate();
        form->setUnchanged();
    }
}
