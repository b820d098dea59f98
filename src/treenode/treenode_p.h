// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

#include <QSet>

namespace OvtCommonPrivate {

// Whether @p node may become a child of @p parent: not null, not already one of its children,
// and neither the parent itself nor one of its ancestors, which would close a cycle that every
// walk up or down the tree then follows for ever.
inline bool isInsertable(const TreeNode *parent, const TreeNode *node)
{
    if (!node)
        return false;
    if (node->parentNode() == parent && parent->childNodes().contains(const_cast<TreeNode *>(node)))
        return false;
    for (const TreeNode *ancestor = parent; ancestor; ancestor = ancestor->parentNode()) {
        if (ancestor == node)
            return false;
    }
    return true;
}

// The nodes of @p nodes that insert() takes, in order, each once. The common case (every node
// acceptable) returns the caller's list itself, without a copy.
inline QList<TreeNode *> insertableNodes(const TreeNode *parent, const QList<TreeNode *> &nodes)
{
    const int count = nodes.size();
    bool clean = true;
    for (int i = 0; i < count && clean; ++i) {
        clean = isInsertable(parent, nodes.at(i));
        // Small lists are searched; the rare big one is checked through a set below.
        for (int k = 0; clean && count <= 16 && k < i; ++k)
            clean = nodes.at(k) != nodes.at(i);
    }
    if (clean && count <= 16)
        return nodes;
    QList<TreeNode *> result;
    result.reserve(count);
    QSet<const TreeNode *> seen;
    seen.reserve(count);
    for (TreeNode *node : nodes) {
        if (isInsertable(parent, node) && !seen.contains(node)) {
            seen.insert(node);
            result.append(node);
        }
    }
    return result;
}

// Marks a node whose destructor is taking it out of its tree. Its children's connections to it
// need no undoing one by one while it lets them go: its QObject destructor drops every
// connection that reaches it in one sweep, far cheaper on a wide node.
class DyingNodeScope
{
public:
    explicit DyingNodeScope(const TreeNode *node);
    ~DyingNodeScope();
    DyingNodeScope(const DyingNodeScope &) = delete;
    DyingNodeScope &operator=(const DyingNodeScope &) = delete;

    static bool isDying(const TreeNode *node);

private:
    const TreeNode *_previous;
};

} // namespace OvtCommonPrivate
