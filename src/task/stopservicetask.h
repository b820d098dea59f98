// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/startstopservicetask.h"

/** Runs the service program with "stop"; on success the element shows the service stopped. */
class OVTCOMMON_EXPORT StopServiceTask : public StartStopServiceTask
{
public:
    explicit StopServiceTask(Element *element);
};
