#include "servicesplugin.h"

#include "servicesmodule.h"

ServicesPlugin::ServicesPlugin()
{
    _name = tr("Services");
    _description = tr("systemd units; started and stopped only when run as root");
    _modules << new ServicesModule(this);
}
