// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/plugin.h"

/** The root object of the tasks plug-in: one module that starts example tasks. */
class TasksPlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "tasks.json")
    Q_INTERFACES(Plugin)

public:
    TasksPlugin();
};
