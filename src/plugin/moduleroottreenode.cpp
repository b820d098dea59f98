// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "moduleroottreenode.h"

#include "treenode/horizontalheader_p.h"

ModuleRootTreeNode::ModuleRootTreeNode(QObject *parent)
    : TreeNode(0, QString(), parent)
{ }

int ModuleRootTreeNode::columnCount() const
{
    return 3;
}

QVariant ModuleRootTreeNode::headerData(int section, Qt::Orientation orientation, int role) const
{
    return OvtCommonPrivate::horizontalHeader(section, orientation, role,
                                              {tr("Name"), tr("Reread"), tr("Description")});
}
