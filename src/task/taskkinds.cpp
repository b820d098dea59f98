// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "task/controlservicetask.h"
#include "task/dummytask.h"
#include "task/exporthtmltask.h"
#include "task/stoppabledummytask.h"
#include "task/taskkinds_p.h"
#include "widgets/vieweditelementwidget.h"

namespace TaskKinds {

bool isParanoid(const Element *element)
{
    return element->module().getData(QStringLiteral("paranoid")).toBool();
}

void performIfOffered(Element *element, OperationType operation, ElementData *data)
{
    if (element->availableOperations() & operation)
        element->performOperation(operation, data, 0);
    else
        delete data;
}

ViewEditElementWidget *viewEditWidget(Element *element, int role)
{
    return qobject_cast<ViewEditElementWidget *>(
        element->elementWidget(static_cast<ElementWidgetRole>(role)));
}

} // namespace TaskKinds

// The kinds that finish their whole work in run() share one do-nothing epilogue.

void ControlServiceTask::afterRun() { }

void ExportHtmlTask::afterRun() { }

void DummyTask::afterRun() { }

void StoppableDummyTask::afterRun() { }
