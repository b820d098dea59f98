#pragma once

#include "task/rservicetask.h"

/** Runs the service program with "reload". */
class OVTCOMMON_EXPORT ReloadServiceTask : public RServiceTask
{
public:
    explicit ReloadServiceTask(Element *element);
};
