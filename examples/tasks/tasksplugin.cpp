#include "tasksplugin.h"

#include "tasksmodule.h"

TasksPlugin::TasksPlugin()
{
    _name = tr("Tasks");
    _description = tr("Example tasks for the task observer and the print preview");
    _modules << new TasksModule(this);
}
