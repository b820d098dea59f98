#include "servicesfolderelement.h"

#include "plugin/module.h"

#include <QIcon>

ServicesFolderElement::ServicesFolderElement(Module &module)
    : Element(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("servicesFolder");
    _groupElementType = QStringLiteral("services");
    _title = _id = folderId();
    _expectedDepth = 1;
}

QString ServicesFolderElement::folderId()
{
    return QStringLiteral("Services");
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
    return tr("System services (systemd units)");
}

QVariant ServicesFolderElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(QStringLiteral("preferences-system"));
    return Element::data(column, role);
}
