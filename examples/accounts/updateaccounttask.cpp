// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "updateaccounttask.h"

#include "element/element.h"
#include "element/elementdata.h"
#include "system/appexception.h"
#include "system/process.h"

#include <unistd.h>

UpdateAccountTask::UpdateAccountTask(Element *account, ElementData *data)
    : UpdateTask(account, data)
{
    taskDescription().setDescription(
        tr("Change the account %1").arg(data->value(QStringLiteral("user")).toString()));
}

void UpdateAccountTask::run()
{
    const QString user = _elementData->value(QStringLiteral("user")).toString();
    if (geteuid() != 0) {
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(tr("Only root may change accounts."));
        return AbstractTask::run();
    }
    try {
        // "--" ends the options: a login name that starts with a dash stays a name.
        Process().simpleStart(
            QStringLiteral("usermod"),
            {QStringLiteral("-c"), _elementData->value(QStringLiteral("gecos")).toString(),
             QStringLiteral("-s"), _elementData->value(QStringLiteral("shell")).toString(),
             QStringLiteral("--"), user},
            true);
        taskDescription().setStatus(TaskDescription::Success);
        taskDescription().setMessage(tr("Account %1 changed").arg(user));
    } catch (const AppException &e) {
        taskDescription().setStatus(TaskDescription::Fail);
        taskDescription().setMessage(e.getText());
    }
    AbstractTask::run();
}

void UpdateAccountTask::afterRun()
{
    if (_element && taskDescription().status() == TaskDescription::Success) {
        _element->elementData()->importFrom(*_elementData);
        _element->emitNodeDataChanged();
    }
    UpdateTask::afterRun();
}
