// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/plugin.h"

/**
 * The root object of the accounts plug-in. A plug-in is a Qt plug-in whose root object derives
 * from Plugin: it names itself and creates its modules in its constructor.
 */
class AccountsPlugin : public Plugin
{
    Q_OBJECT
    // The interface identifier is what PluginContainer checks before it trusts the file.
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "accounts.json")
    Q_INTERFACES(Plugin)

public:
    AccountsPlugin();
};
