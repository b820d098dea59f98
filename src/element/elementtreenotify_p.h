// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"
#include "plugin/module.h"
#include "treenode/treenode_p.h"

#include <algorithm>

namespace ElementTreeNotify {

// Elements and element roots share these bodies: insertion and removal are the only moments
// at which a module hears about its elements entering or leaving a tree.
inline void notify(const QList<TreeNode *> &nodes, OperationType operation)
{
    // A copy: the list may be the module's own, which it is free to change while it is told.
    const QList<TreeNode *> told = nodes;
    for (TreeNode *node : told) {
        if (auto *element = qobject_cast<Element *>(node))
            element->module().performOperation(element, operation, nullptr, 0);
    }
}

// Only the nodes that the tree takes are announced: a skipped node (null, listed twice, or
// closing a cycle) never entered it.
template<typename Insert>
void insert(TreeNode *parent, int pos, const QList<TreeNode *> &nodes, Insert insert)
{
    const QList<TreeNode *> taken = OvtCommonPrivate::insertableNodes(parent, nodes);
    insert(pos, taken);
    notify(taken, InsertedOperation);
}

// The range is clamped here rather than left to TreeNode::removeAt, since the removed nodes
// must be known before they are gone.
template<typename Remove> void removeAt(TreeNode *parent, int pos, int count, Remove remove)
{
    const int total = parent->childNodesCount();
    if (total == 0 || pos < 0 || pos >= total || count < 1)
        return;
    count = std::min(count, total - pos);
    const QList<TreeNode *> removed = parent->childNodes().mid(pos, count);
    remove(pos, count);
    notify(removed, RemovedOperation);
}

} // namespace ElementTreeNotify
