// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "tasksplugin.h"

#include "tasksmodule.h"

TasksPlugin::TasksPlugin()
{
    _name = tr("Tasks");
    _description = tr("Example tasks for the task observer and the print preview");
    _modules << new TasksModule(this);
}
