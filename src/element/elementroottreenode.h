// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

/**
 * The invisible root of an element tree: one column headed "Name". Like an element, it tells
 * the modules of elements inserted under it or removed from it.
 */
class OVTCOMMON_EXPORT ElementRootTreeNode : public TreeNode
{
    Q_OBJECT

public:
    explicit ElementRootTreeNode(QObject *parent = nullptr);

    using TreeNode::insert;
    void insert(int pos, const QList<TreeNode *> &nodes) override;
    void removeAt(int pos, int count) override;
    int columnCount() const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
};
