// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

/**
 * The root of the module tree: three columns, "Name", "Reread" and "Description". Top-level
 * modules have expected depth 1 and an empty expected parent id. Owns no modules.
 */
class OVTCOMMON_EXPORT ModuleRootTreeNode : public TreeNode
{
    Q_OBJECT

public:
    explicit ModuleRootTreeNode(QObject *parent = nullptr);

    int columnCount() const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
};
