#pragma once

#include "task/startstopservicetask.h"

/** Runs the service program with "stop"; on success the element shows the service stopped. */
class OVTCOMMON_EXPORT StopServiceTask : public StartStopServiceTask
{
public:
    explicit StopServiceTask(Element *element);
};
