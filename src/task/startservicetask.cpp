#include "task/startservicetask.h"

StartServiceTask::StartServiceTask(Element *element)
    : StartStopServiceTask(element, true)
{
    _command = QStringLiteral("start");
}
