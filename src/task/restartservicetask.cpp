#include "task/restartservicetask.h"

RestartServiceTask::RestartServiceTask(Element *element)
    : RServiceTask(element)
{
    _command = QStringLiteral("restart");
}
