#pragma once

#include "task/rservicetask.h"

/** Runs the service program with "restart". */
class OVTCOMMON_EXPORT RestartServiceTask : public RServiceTask
{
public:
    explicit RestartServiceTask(Element *element);
};
