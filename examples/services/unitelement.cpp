// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "unitelement.h"

#include "plugin/module.h"

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
