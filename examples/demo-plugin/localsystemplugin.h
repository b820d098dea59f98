#pragma once

#include "plugin/plugin.h"

/**
 * The root object of the demo plug-in: it names itself and hands the tool its two modules,
 * local user accounts and a few system services. Everything it shows is read, never changed.
 */
class LocalSystemPlugin : public Plugin
{
    Q_OBJECT
    // The interface identifier is what PluginContainer checks before it trusts the file.
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "localsystem.json")
    Q_INTERFACES(Plugin)

public:
    LocalSystemPlugin();
};
