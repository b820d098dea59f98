#include "unitelement.h"

#include "element/servicelightelementdata.h"
#include "plugin/module.h"

UnitElement::UnitElement(Module &module, const QString &unit, const QString &folderId)
    : ServiceElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("unit");
    _title = _id = unit;
    _expectedDepth = 2;
    _expectedParentId = folderId;
}

QString UnitElement::caption() const
{
    const auto *state = static_cast<const ServiceLightElementData *>(elementData());
    if (state->textState().isEmpty())
        return tr("%1: state not read yet").arg(title());
    return tr("%1: %2").arg(title(), state->textState());
}
