// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodemodelextension.h"

#include <QAbstractItemModel>
#include <QAbstractProxyModel>
#include <QSet>

namespace OvtCommonPrivate {

// The nodes of a range's valid indexes, each once, in index order; empty for a range of
// another model. Shared by the tree model and every proxy over it.
inline void appendNodesOfRange(const TreeNodeModelExtension *extension,
                               const QAbstractItemModel *model, const QItemSelectionRange &range,
                               QList<TreeNode *> &nodes, QSet<TreeNode *> &seen)
{
    if (range.model() != model)
        return;
    const QModelIndexList indexes = range.indexes();
    for (const QModelIndex &index : indexes) {
        if (!index.isValid())
            continue;
        TreeNode *node = extension->toTreeNode(index);
        if (node && !seen.contains(node)) {
            seen.insert(node);
            nodes.append(node);
        }
    }
}

inline QList<TreeNode *> nodesOfRange(const TreeNodeModelExtension *extension,
                                      const QAbstractItemModel *model,
                                      const QItemSelectionRange &range)
{
    QList<TreeNode *> nodes;
    QSet<TreeNode *> seen;
    appendNodesOfRange(extension, model, range, nodes, seen);
    return nodes;
}

inline QList<TreeNode *> nodesOfSelection(const TreeNodeModelExtension *extension,
                                          const QAbstractItemModel *model,
                                          const QItemSelection &selection)
{
    QList<TreeNode *> nodes;
    QSet<TreeNode *> seen;
    for (const QItemSelectionRange &range : selection)
        appendNodesOfRange(extension, model, range, nodes, seen);
    return nodes;
}

// The node lookups of a proxy, answered through its source model's extension. The source is
// looked up on every call: it may be replaced or destroyed behind the proxy's back.
inline const TreeNodeModelExtension *sourceExtension(const QAbstractProxyModel *proxy)
{
    return dynamic_cast<const TreeNodeModelExtension *>(proxy->sourceModel());
}

inline TreeNode *proxyRootNode(const QAbstractProxyModel *proxy)
{
    const TreeNodeModelExtension *extension = sourceExtension(proxy);
    return extension ? extension->rootNode() : nullptr;
}

// The node of a row is asked in column 0, so any column of a row maps to the row's node; an
// index of another model maps to none rather than tripping mapToSource().
inline TreeNode *proxyToTreeNode(const QAbstractProxyModel *proxy, const QModelIndex &index)
{
    const TreeNodeModelExtension *extension = sourceExtension(proxy);
    if (!extension || (index.isValid() && index.model() != proxy))
        return nullptr;
    return extension->toTreeNode(proxy->mapToSource(index.sibling(index.row(), 0)));
}

inline QModelIndex proxyTreeNodeToIndex(const QAbstractProxyModel *proxy, TreeNode *node)
{
    const TreeNodeModelExtension *extension = sourceExtension(proxy);
    if (!node || !extension)
        return QModelIndex();
    return proxy->mapFromSource(extension->treeNodeToIndex(node));
}

} // namespace OvtCommonPrivate
