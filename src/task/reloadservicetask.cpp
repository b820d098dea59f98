#include "task/reloadservicetask.h"

ReloadServiceTask::ReloadServiceTask(Element *element)
    : RServiceTask(element)
{
    _command = QStringLiteral("reload");
}
