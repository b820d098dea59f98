// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/startservicetask.h"

StartServiceTask::StartServiceTask(Element *element)
    : StartStopServiceTask(element, true)
{
    _command = QStringLiteral("start");
}
