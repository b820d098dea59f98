// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/startevent.h"

StartEvent::StartEvent(const QString &pluginPath)
    : QEvent(static_cast<QEvent::Type>(Type))
    , _pluginPath(pluginPath)
{ }

StartEvent::~StartEvent() = default;

QString StartEvent::pluginPath() const
{
    return _pluginPath;
}
