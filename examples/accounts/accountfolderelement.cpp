// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "accountfolderelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

#include <QIcon>

AccountFolderElement::AccountFolderElement(Module &module, Kind kind)
    // Never editable: users and groups are created with the system's own tools.
    : ContainerElement(module, &Module::defaultFalse)
{
    _elementType = QStringLiteral("accountFolder");
    // The group is inherited by the children; the tool filters the element tree by it.
    _groupElementType = module.id();
    // A fixed node: the container places it by depth and parent id, found by its id.
    _title = _id = kind == Users ? QStringLiteral("Users") : QStringLiteral("Groups");
    _expectedDepth = 1;
    _requireLoad = true;
    // A plain element has no record; the element owns and deletes the one it is given.
    setElementData(new ElementData);
    elementData()->insert(QStringLiteral("kind"), kind);
}

AccountFolderElement::Kind AccountFolderElement::kind() const
{
    return static_cast<Kind>(elementData()->value(QStringLiteral("kind")).toInt());
}

QString AccountFolderElement::caption() const
{
    return kind() == Users ? tr("User accounts, including those of directory services")
                           : tr("Groups, including those of directory services");
}

QVariant AccountFolderElement::data(int column, int role) const
{
    if (column == 0 && role == Qt::DecorationRole)
        return QIcon::fromTheme(kind() == Users ? QStringLiteral("system-users")
                                                : QStringLiteral("folder"));
    return ContainerElement::data(column, role);
}
