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
