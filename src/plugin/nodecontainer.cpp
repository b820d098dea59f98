// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodecontainer.h"

NodeContainer::NodeContainer(QObject *parent)
    : QObject(parent)
    , _rootNode(nullptr)
    , _treeNodeModel(nullptr)
{ }

NodeContainer::~NodeContainer() = default;

TreeNode *NodeContainer::rootNode() const
{
    return _rootNode;
}

TreeNodeModel *NodeContainer::treeNodeModel() const
{
    return _treeNodeModel;
}
