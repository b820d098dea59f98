// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
// Complete, not forward-declared: a member-function-pointer connect to a signal carrying a
// TreeNode pointer needs the type's QObject ancestry.
#include "treenode/treenode.h"

#include <QObject>

class TreeNodeModel;

/**
 * A root node with its model, and the signals by which a container announces a wholesale
 * rebuild of its tree and asks views to select or expand a node. Subclasses create both.
 */
class OVTCOMMON_EXPORT NodeContainer : public QObject
{
    Q_OBJECT

public:
    explicit NodeContainer(QObject *parent = nullptr);
    ~NodeContainer() override;

    TreeNode *rootNode() const;
    TreeNodeModel *treeNodeModel() const;

Q_SIGNALS:
    void nodeContainerAboutToBeReset();
    void nodeContainerReset(const TreeNode *root);
    void setCurrentNode(TreeNode *node);
    void expandCurrentNode(TreeNode *node);

protected:
    TreeNode *_rootNode; // set by the subclass
    TreeNodeModel *_treeNodeModel; // set by the subclass
};
