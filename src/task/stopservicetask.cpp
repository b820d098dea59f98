// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/stopservicetask.h"

StopServiceTask::StopServiceTask(Element *element)
    : StartStopServiceTask(element, false)
{
    _command = QStringLiteral("stop");
}
