// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/rservicetask.h"

/** Runs the service program with "restart". */
class OVTCOMMON_EXPORT RestartServiceTask : public RServiceTask
{
public:
    explicit RestartServiceTask(Element *element);
};
