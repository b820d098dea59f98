// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/plugin.h"

/** The root object of the services plug-in: one module, the systemd units. */
class ServicesPlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "services.json")
    Q_INTERFACES(Plugin)

public:
    ServicesPlugin();
};
