// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/reloadservicetask.h"

ReloadServiceTask::ReloadServiceTask(Element *element)
    : RServiceTask(element)
{
    _command = QStringLiteral("reload");
}
