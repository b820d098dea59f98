#pragma once

#include "treenode/treenodemodelextension.h"

#include <QAbstractItemModel>
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

} // namespace OvtCommonPrivate
