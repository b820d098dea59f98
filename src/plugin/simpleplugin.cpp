// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "simpleplugin.h"

SimplePlugin::SimplePlugin(const QString &name, const QString &description)
    : Plugin(nullptr)
    , _available(true)
{
    _name = name;
    _description = description;
}

SimplePlugin::~SimplePlugin() = default;

bool SimplePlugin::available() const
{
    return _available;
}

void SimplePlugin::setAvailable(bool available)
{
    _available = available;
}

QString SimplePlugin::errorDescription() const
{
    return _errorDescription;
}

void SimplePlugin::setErrorDescription(const QString &errorDescription)
{
    _errorDescription = errorDescription;
}
