// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QItemSelection>
#include <QList>
#include <QModelIndex>

class TreeNode;

/**
 * What every model and proxy over a node tree offers, so that views and widgets go from
 * indexes and selections to nodes and back whatever stack of models they hold.
 * Inherited virtually.
 */
class OVTCOMMON_EXPORT TreeNodeModelExtension
{
public:
    virtual TreeNode *rootNode() const = 0;
    /** The node of @p index; the root for an invalid index; null for another model's index. */
    virtual TreeNode *toTreeNode(const QModelIndex &index) const = 0;
    /** The nodes of the range's valid indexes, each once, in index order. */
    virtual QList<TreeNode *> toTreeNode(const QItemSelectionRange &range) const = 0;
    /** The nodes of all ranges, each once overall. */
    virtual QList<TreeNode *> toTreeNode(const QItemSelection &selection) const = 0;
    /** The index of @p node in column 0; invalid for the root and for foreign nodes. */
    virtual QModelIndex treeNodeToIndex(TreeNode *node) const = 0;

protected:
    // Never deleted through the interface, so the destructor stays out of the virtual table.
    ~TreeNodeModelExtension() = default;
};
