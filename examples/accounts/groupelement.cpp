// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "groupelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

GroupElement::GroupElement(Module &module, const ElementData &record)
    : Element(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("group");
    setTitle(record.value(QStringLiteral("name")).toString());
    setElementData(new ElementData(record));
}

QString GroupElement::caption() const
{
    const QStringList members = elementData()->value(QStringLiteral("members")).toStringList();
    return tr("%1: gid %2, members: %3")
        .arg(title(), elementData()->value(QStringLiteral("gid")).toString(),
             members.isEmpty() ? tr("none") : members.join(QStringLiteral(", ")));
}

QVariant GroupElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole) {
        static const QIcon group = QIcon::fromTheme(QStringLiteral("system-users"));
        return group;
    }
    return Element::data(column, role);
}
