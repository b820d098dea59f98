// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "supplementloginmixin.h"

#include "element/element.h"
#include "element/elementdata.h"

SupplementLoginMixin::SupplementLoginMixin(Element *element)
    : _element(element)
{ }

int SupplementLoginMixin::treeNodeSpecialFlags(int flags) const
{
    if (!_element)
        return flags;
    auto *parent = qobject_cast<Element *>(_element->parentNode());
    if (!parent || !parent->elementData())
        return flags;
    const bool isLogin = parent->elementData()->value(QStringLiteral("isLogin"), false).toBool();
    return isLogin ? flags : flags | 0x1;
}
