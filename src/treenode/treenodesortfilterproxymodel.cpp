// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treenodesortfilterproxymodel.h"

#include "treenode/treenode.h"
#include "treenode/treenodemodelextension_p.h"

TreeNodeSortFilterProxyModel::TreeNodeSortFilterProxyModel(int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(QSet<int>(), specialFlagsFilter, parent)
{ }

TreeNodeSortFilterProxyModel::TreeNodeSortFilterProxyModel(const QSet<int> &acceptColumns,
                                                           int specialFlagsFilter, QObject *parent)
    : QSortFilterProxyModel(parent)
    , _specialFlagsFilter(specialFlagsFilter)
    , _acceptColumns(acceptColumns)
{
    // A new source may take the address of a destroyed one; the cast is then made again.
    connect(this, &QAbstractProxyModel::sourceModelChanged, this,
            [this] { _castSource = nullptr; });
}

int TreeNodeSortFilterProxyModel::specialFlagsFilter() const
{
    return _specialFlagsFilter;
}

QSet<int> TreeNodeSortFilterProxyModel::acceptColumns() const
{
    return _acceptColumns;
}

void TreeNodeSortFilterProxyModel::setAcceptColumns(const QSet<int> &acceptColumns)
{
    // A reset even for an equal set: callers use it to have views re-read their columns.
    beginResetModel();
    _acceptColumns = acceptColumns;
    endResetModel();
}

TreeNode *TreeNodeSortFilterProxyModel::rootNode() const
{
    return OvtCommonPrivate::proxyRootNode(this);
}

TreeNode *TreeNodeSortFilterProxyModel::toTreeNode(const QModelIndex &index) const
{
    return OvtCommonPrivate::proxyToTreeNode(this, index);
}

QList<TreeNode *> TreeNodeSortFilterProxyModel::toTreeNode(const QItemSelectionRange &range) const
{
    return OvtCommonPrivate::nodesOfRange(this, this, range);
}

QList<TreeNode *> TreeNodeSortFilterProxyModel::toTreeNode(const QItemSelection &selection) const
{
    return OvtCommonPrivate::nodesOfSelection(this, this, selection);
}

QModelIndex TreeNodeSortFilterProxyModel::treeNodeToIndex(TreeNode *node) const
{
    return OvtCommonPrivate::proxyTreeNodeToIndex(this, node);
}

int TreeNodeSortFilterProxyModel::rowCount(const QModelIndex &parent) const
{
    // The base builds a mapping for every parent it is asked about, a leaf included, and keeps
    // it until the filter or the source changes: a walk over a big tree made one per row, each
    // with its own column lists, only to hold no rows. A row without rows in the source has none
    // here whatever the filter; its mapping is left to be built when rows first arrive (the base
    // does so before it announces them).
    const TreeNodeModel *plain
        = parent.isValid() && parent.model() == this ? plainSource() : nullptr;
    if (plain) {
        const QModelIndex sourceParent = mapToSource(parent);
        if (sourceParent.isValid() && plain->TreeNodeModel::rowCount(sourceParent) == 0)
            return 0;
    }
    return QSortFilterProxyModel::rowCount(parent);
}

bool TreeNodeSortFilterProxyModel::filterAcceptsColumn(int sourceColumn, const QModelIndex &) const
{
    return _acceptColumns.isEmpty() || _acceptColumns.contains(sourceColumn);
}

const TreeNodeModelExtension *TreeNodeSortFilterProxyModel::sourceNodeModel() const
{
    const QAbstractItemModel *source = sourceModel();
    if (source != _castSource) {
        _sourceNodeModel = dynamic_cast<const TreeNodeModelExtension *>(source);
        _plainSource = OvtCommonPrivate::isPlainTreeNodeModel(source)
            ? static_cast<const TreeNodeModel *>(source)
            : nullptr;
        _castSource = source;
    }
    return _sourceNodeModel;
}

const TreeNodeModel *TreeNodeSortFilterProxyModel::plainSource() const
{
    sourceNodeModel();
    return _plainSource;
}

TreeNode *TreeNodeSortFilterProxyModel::sourceRowNode(int sourceRow,
                                                      const QModelIndex &sourceParent) const
{
    const TreeNodeModelExtension *extension = sourceNodeModel();
    if (_plainSource)
        return OvtCommonPrivate::plainRowNode(_plainSource, sourceRow, sourceParent);
    return extension ? extension->toTreeNode(sourceModel()->index(sourceRow, 0, sourceParent))
                     : nullptr;
}

QVariant TreeNodeSortFilterProxyModel::sourceRowData(int sourceRow, int column,
                                                     const QModelIndex &sourceParent,
                                                     int role) const
{
    if (const TreeNodeModel *plain = plainSource())
        return OvtCommonPrivate::plainRowData(plain, sourceRow, column, sourceParent, role);
    return sourceModel()->index(sourceRow, column, sourceParent).data(role);
}

bool TreeNodeSortFilterProxyModel::acceptsNodeFlags(const TreeNode *node) const
{
    if (!node)
        return true;
    const int flags = node->treeNodeSpecialFlags();
    if ((_specialFlagsFilter & 0x1) && (flags & 0x1))
        return false;
    if (_specialFlagsFilter & 0x2)
        return flags & 0x2;
    return true;
}

bool TreeNodeSortFilterProxyModel::filterAcceptsRow(int sourceRow,
                                                    const QModelIndex &sourceParent) const
{
    return acceptsNodeFlags(sourceRowNode(sourceRow, sourceParent));
}
