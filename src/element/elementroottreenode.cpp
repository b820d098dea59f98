// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementroottreenode.h"

#include "element/elementtreenotify_p.h"

ElementRootTreeNode::ElementRootTreeNode(QObject *parent)
    : TreeNode(0, QString(), parent)
{ }

void ElementRootTreeNode::insert(int pos, const QList<TreeNode *> &nodes)
{
    ElementTreeNotify::insert(
        this, pos, nodes, [this](int p, const QList<TreeNode *> &n) { TreeNode::insert(p, n); });
}

void ElementRootTreeNode::removeAt(int pos, int count)
{
    ElementTreeNotify::removeAt(this, pos, count,
                                [this](int p, int c) { TreeNode::removeAt(p, c); });
}

int ElementRootTreeNode::columnCount() const
{
    return 1;
}

QVariant ElementRootTreeNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (section == 0 && orientation == Qt::Horizontal && role == Qt::DisplayRole)
        return tr("Name");
    return QVariant();
}
