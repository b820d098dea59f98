// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicesmodule.h"

#include "element/elementdata.h"
#include "readunitstask.h"
#include "servicesfolderelement.h"
#include "servicewidget.h"
#include "systemctltask.h"
#include "task/reloadservicetask.h"
#include "task/restartservicetask.h"
#include "task/startservicetask.h"
#include "task/stopservicetask.h"
#include "task/taskobserver.h"
#include "unitelement.h"

ServicesModule::ServicesModule(QObject *parent)
    : Module(QStringLiteral("services"), parent, false)
{
    _expectedDepth = 1;
    _moduleData->insert(QStringLiteral("title"), tr("Services"));
    _moduleData->insert(QStringLiteral("description"), tr("systemd units and their state"));
    _elementNodes << new ServicesFolderElement(*this);
    insertElementWidget(new ServiceWidget(*this));
    connectElementWidgets();
}

void ServicesModule::performOperation(ContextOperation *context, OperationType type, ElementData *,
                                      int)
{
    // The element container sends ReadLightOperation to top-level elements after every
    // rebuild: one task lists all units, one row in the observer.
    auto *folder
        = context ? qobject_cast<ServicesFolderElement *>(context->elementContext()) : nullptr;
    if (folder && type == ReadLightOperation)
        TaskObserver::instance()->performTask(new ReadUnitsTask(folder));
}

void ServicesModule::control(UnitElement *unit, Action action)
{
    if (!unit)
        return;
    AbstractTask *task = nullptr;
    switch (action) {
    case Start:
        task = new SystemctlTask<StartServiceTask>(unit);
        break;
    case Stop:
        task = new SystemctlTask<StopServiceTask>(unit);
        break;
    case Restart:
        task = new SystemctlTask<RestartServiceTask>(unit);
        break;
    case Reload:
        task = new SystemctlTask<ReloadServiceTask>(unit);
        break;
    }
    TaskObserver::instance()->performTask(task);
}
