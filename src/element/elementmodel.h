// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementmodelextension.h"
#include "treenode/treenodemodel.h"

/** A tree node model over an element tree that also answers which element is at an index. */
class OVTCOMMON_EXPORT ElementModel : public TreeNodeModel, public ElementModelExtension
{
    Q_OBJECT

public:
    explicit ElementModel(QObject *parent = nullptr);
    /** @p root is not owned. */
    ElementModel(TreeNode *root, QObject *parent = nullptr);
    ~ElementModel() override;
};
