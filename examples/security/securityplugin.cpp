// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "securityplugin.h"

#include "element/elementdata.h"
#include "securitywidget.h"

SecurityPlugin::SecurityPlugin()
{
    _name = tr("Security options");
    _description = tr("The switches of the security monitor tool, shown read only");
    _modules << new SecurityModule(this);
}

SecurityModule::SecurityModule(QObject *parent)
    : Module(QStringLiteral("security"), parent, false)
{
    _expectedDepth = 1;
    // The tool shows the title in its module tree; the id stays the settings key.
    _moduleData->insert(QStringLiteral("title"), tr("Security options"));
    _moduleData->insert(QStringLiteral("description"), tr("Switches of the security monitor"));
    _elementNodes << new SecurityOptionsElement(*this);
    insertElementWidget(new SecurityOptionsWidget(*this));
    connectElementWidgets();
}

SecurityOptionsElement::SecurityOptionsElement(Module &module)
    : OrdinaryElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("securityOptions");
    _title = _id = QStringLiteral("SecurityOptions");
    // The tool narrows its element tree to the chosen module by this group.
    _groupElementType = module.id();
    _expectedDepth = 1;
    _elementData = new ElementData;
}

QString SecurityOptionsElement::caption() const
{
    return tr("Security options");
}

QVariant SecurityOptionsElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DisplayRole)
        return tr("Security options");
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("security-high"));
    return OrdinaryElement::data(column, role);
}
