// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementmodel.h"

#include "treenode/treenodemodelextension_p.h"

namespace {

// Answers every model question as the tree node model does, so proxies may read its rows
// straight from the nodes.
const OvtCommonPrivate::PlainTreeNodeModelClass plainClass(typeid(ElementModel));

} // namespace

ElementModel::ElementModel(QObject *parent)
    : TreeNodeModel(parent)
{ }

ElementModel::ElementModel(TreeNode *root, QObject *parent)
    : TreeNodeModel(root, parent)
{ }

ElementModel::~ElementModel() = default;
