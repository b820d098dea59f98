// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicesfolderelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

ServicesFolderElement::ServicesFolderElement(Module &module)
    : Element(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("servicesFolder");
    _groupElementType = module.id();
    _title = _id = QStringLiteral("Services");
    _expectedDepth = 1;
    setElementData(new ElementData);
}

OperationType ServicesFolderElement::availableOperations() const
{
    return ReadLightOperation;
}

void ServicesFolderElement::performOperation(OperationType operation, ElementData *data,
                                             int alternative)
{
    // An element does no work itself: what it offers goes to its module.
    if (operation == ReadLightOperation)
        module().performOperation(this, operation, data, alternative);
}

QString ServicesFolderElement::caption() const
{
    const QString message = elementData()->value(QStringLiteral("message")).toString();
    return message.isEmpty() ? tr("System services (systemd units)") : message;
}

QVariant ServicesFolderElement::data(int column, int role) const
{
    if (column == 0) {
        const QString message = elementData()->value(QStringLiteral("message")).toString();
        if (role == Qt::DecorationRole)
            return QIcon::fromTheme(message.isEmpty() ? QStringLiteral("preferences-system")
                                                      : QStringLiteral("dialog-warning"));
        if (role == Qt::DisplayRole && !message.isEmpty())
            return tr("%1 — %2").arg(title(), message);
    }
    return Element::data(column, role);
}
