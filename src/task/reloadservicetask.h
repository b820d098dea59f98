// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/rservicetask.h"

/** Runs the service program with "reload". */
class OVTCOMMON_EXPORT ReloadServiceTask : public RServiceTask
{
public:
    explicit ReloadServiceTask(Element *element);
};
