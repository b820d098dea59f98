// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

/** The root of a configuration tree: two columns, "Name" and "Value"; owns its subtree. */
class OVTCOMMON_EXPORT ConfRootTreeNode : public TreeNode
{
    Q_OBJECT

public:
    explicit ConfRootTreeNode(QObject *parent = nullptr);
    /** Deletes the whole subtree. */
    ~ConfRootTreeNode() override;

    int columnCount() const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
};
