// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountsplugin.h"

#include "accountsmodule.h"

AccountsPlugin::AccountsPlugin()
{
    _name = tr("Accounts");
    _description = tr("Users and groups of the system; changes only when run as root");
    // The plug-in is the QObject parent of its modules: they go when the library is unloaded.
    _modules << new AccountsModule(this);
}
