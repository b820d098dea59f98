#include "accountsplugin.h"

#include "accountsmodule.h"

AccountsPlugin::AccountsPlugin()
{
    _name = tr("Accounts");
    _description = tr("Users and groups of the system; changes only when run as root");
    // The plug-in is the QObject parent of its modules: they go when the library is unloaded.
    _modules << new AccountsModule(this);
}
