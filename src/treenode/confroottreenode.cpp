// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "confroottreenode.h"

#include "treenode/horizontalheader_p.h"

ConfRootTreeNode::ConfRootTreeNode(QObject *parent)
    : TreeNode(0, QString(), parent)
{ }

ConfRootTreeNode::~ConfRootTreeNode()
{
    clearDeleteAll();
}

int ConfRootTreeNode::columnCount() const
{
    return 2;
}

QVariant ConfRootTreeNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    return OvtCommonPrivate::horizontalHeader(section, orientation, role,
                                              {tr("Name"), tr("Value")});
}
