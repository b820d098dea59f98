// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicesplugin.h"

#include "servicesmodule.h"

ServicesPlugin::ServicesPlugin()
{
    _name = tr("Services");
    _description = tr("systemd units; started and stopped only when run as root");
    _modules << new ServicesModule(this);
}
