#include "task/stopservicetask.h"

StopServiceTask::StopServiceTask(Element *element)
    : StartStopServiceTask(element, false)
{
    _command = QStringLiteral("stop");
}
