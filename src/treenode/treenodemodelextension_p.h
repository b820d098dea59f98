// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"
#include "treenode/treenodemodelextension.h"

#include <QAbstractItemModel>
#include <QAbstractProxyModel>
#include <QSet>

#include <typeinfo>

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

// Whether @p model is a TreeNodeModel whose class answers index(), toTreeNode(), rowCount(),
// columnCount() and data() exactly as TreeNodeModel does: TreeNodeModel itself, or a subclass
// registered with PlainTreeNodeModelClass because it overrides none of them. Proxies then read the
// rows of such a model straight from its nodes instead of building a source index for every
// question.
bool isPlainTreeNodeModel(const QAbstractItemModel *model);

// Registers a subclass of TreeNodeModel that changes none of its answers (see above); meant for
// a namespace-scope object in the subclass's .cpp file.
struct PlainTreeNodeModelClass
{
    explicit PlainTreeNodeModelClass(const std::type_info &type);
};

// The node @p model shows in @p row under @p parentNode (the extra root child nodes come first
// under the root), or @p missing when there is no such row.
inline TreeNode *nodeAtRow(const TreeNodeModel *model, TreeNode *parentNode, int row,
                           TreeNode *missing = nullptr)
{
    if (parentNode == model->TreeNodeModel::rootNode()) {
        const QList<TreeNode *> &extras = model->extraRootChildNodes();
        if (row < extras.size())
            return extras.at(row);
        row -= extras.size();
    }
    return row < parentNode->childNodesCount() ? parentNode->childNodes().at(row) : missing;
}

// toTreeNode(index(row, 0, parent)) of a plain model (isPlainTreeNodeModel), read from the
// nodes: the node of the row, or what the model answers for an invalid index (its root) when
// there is no such row.
inline TreeNode *plainRowNode(const TreeNodeModel *model, int row, const QModelIndex &parent)
{
    TreeNode *parentNode = model->TreeNodeModel::toTreeNode(parent);
    TreeNode *root = model->TreeNodeModel::toTreeNode(QModelIndex());
    if (parentNode && row >= 0 && model->TreeNodeModel::columnCount(parent) > 0)
        return nodeAtRow(model, parentNode, row, root);
    return root;
}

// index(row, column, parent).data(role) of a plain model, read from the nodes.
inline QVariant plainRowData(const TreeNodeModel *model, int row, int column,
                             const QModelIndex &parent, int role)
{
    TreeNode *parentNode = model->TreeNodeModel::toTreeNode(parent);
    if (!parentNode || row < 0 || column < 0 || column >= model->TreeNodeModel::columnCount(parent))
        return QVariant();
    TreeNode *node = nodeAtRow(model, parentNode, row);
    return node ? node->data(column, role) : QVariant();
}

} // namespace OvtCommonPrivate
