// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/ordinaryelement.h"
#include "plugin/module.h"
#include "plugin/plugin.h"

/**
 * The security options of the system as its security monitor tool lists them. The plug-in
 * only shows them: the tool is not asked until the user opens the element, and never when
 * it is not installed, so loading never waits for it or shows a message box.
 */
class SecurityPlugin : public Plugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID OVT_PLUGIN_IID FILE "security.json")
    Q_INTERFACES(Plugin)

public:
    SecurityPlugin();
};

class SecurityModule : public Module
{
    Q_OBJECT

public:
    explicit SecurityModule(QObject *parent);
};

/** The one element, "Security options", a fixed top-level node. */
class SecurityOptionsElement : public OrdinaryElement
{
    Q_OBJECT

public:
    explicit SecurityOptionsElement(Module &module);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
