// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/startstopservicetask.h"

/** Runs the service program with "start"; on success the element shows the service running. */
class OVTCOMMON_EXPORT StartServiceTask : public StartStopServiceTask
{
public:
    explicit StartServiceTask(Element *element);
};
