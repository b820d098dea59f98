// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementmodel.h"

ElementModel::ElementModel(QObject *parent)
    : TreeNodeModel(parent)
{ }

ElementModel::ElementModel(TreeNode *root, QObject *parent)
    : TreeNodeModel(root, parent)
{ }

ElementModel::~ElementModel() = default;
