#include "serviceelements.h"

#include "element/servicelightelementdata.h"
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

UnitElement::UnitElement(Module &module, const QString &unit, const ServiceLightElementData &record)
    // Only root may start and stop units.
    : ServiceElement(module, &Module::isAdministrator)
{
    _elementType = QStringLiteral("unit");
    setTitle(unit);
    // The base made the record; the state and texts are copied into it.
    *static_cast<ServiceLightElementData *>(elementData()) = record;
}

QString UnitElement::caption() const
{
    const auto *state = static_cast<const ServiceLightElementData *>(elementData());
    return tr("%1 (%2): %3")
        .arg(state->value(QStringLiteral("description")).toString(), title(), state->textState());
}
