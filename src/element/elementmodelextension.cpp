// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementmodelextension.h"

#include "element/element.h"

namespace {

Element *firstElement(const QList<TreeNode *> &nodes)
{
    return nodes.isEmpty() ? nullptr : qobject_cast<Element *>(nodes.constFirst());
}

} // namespace

Element *ElementModelExtension::toElement(const QModelIndex &index) const
{
    return qobject_cast<Element *>(toTreeNode(index));
}

Element *ElementModelExtension::toElement(const QItemSelectionRange &range) const
{
    return firstElement(toTreeNode(range));
}

Element *ElementModelExtension::toElement(const QItemSelection &selection) const
{
    return firstElement(toTreeNode(selection));
}
