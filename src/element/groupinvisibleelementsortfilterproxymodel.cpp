// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "groupinvisibleelementsortfilterproxymodel.h"

#include "element/element.h"

GroupInvisibleElementSortFilterProxyModel::GroupInvisibleElementSortFilterProxyModel(
    QObject *parent)
    : GroupInvisibleElementSortFilterProxyModel(QSet<int>(), parent)
{ }

GroupInvisibleElementSortFilterProxyModel::GroupInvisibleElementSortFilterProxyModel(
    const QSet<int> &acceptColumns, QObject *parent)
    : ElementSortFilterProxyModel(acceptColumns, 0x1, parent)
    , _groupElementType(ContextOperation::undefinedElementType)
{
    connect(this, &QAbstractProxyModel::sourceModelChanged, this,
            [this] { _castSource = nullptr; });
}

QString GroupInvisibleElementSortFilterProxyModel::groupElementType() const
{
    return _groupElementType;
}

void GroupInvisibleElementSortFilterProxyModel::setGroupElementType(const QString &type, bool force)
{
    if (!force && type == _groupElementType)
        return;
    _groupElementType = type;
    invalidateFilter();
}

bool GroupInvisibleElementSortFilterProxyModel::filterAcceptsRow(
    int sourceRow, const QModelIndex &sourceParent) const
{
    // The base's judgement and the group's read the same node: it is looked up once.
    const TreeNode *node = sourceRowNode(sourceRow, sourceParent);
    if (!acceptsNodeFlags(node))
        return false;
    if (_groupElementType == ContextOperation::undefinedElementType)
        return true;
    // An element model offers exactly the elements among its nodes; any other source none.
    const TreeNodeModelExtension *source = sourceNodeModel();
    if (source != _castSource) {
        _elementSource = dynamic_cast<const ElementModelExtension *>(source);
        _castSource = source;
    }
    if (!_elementSource)
        return true;
    const auto *element = qobject_cast<const Element *>(node);
    return !element || element->groupElementType() == _groupElementType;
}
