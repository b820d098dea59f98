#include "localsystemplugin.h"

#include "servicesmodule.h"
#include "usersmodule.h"

LocalSystemPlugin::LocalSystemPlugin()
{
    _name = tr("Local system");
    _description = tr("Local accounts and system services, read only");
    // The plug-in is the QObject parent of its modules: they go when the library is unloaded.
    _modules << new UsersModule(this) << new ServicesModule(this);
}
