// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementmodelextension.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"

/**
 * The proxy a list element widget shows its element model through: the node-tree text filter
 * of FilterTreeNodeSortFilterProxyModel that also answers which element is at an index.
 * Rows and columns are those of the base; subclasses narrow them.
 */
class OVTCOMMON_EXPORT ListWidgetProxyModel : public FilterTreeNodeSortFilterProxyModel,
                                              public ElementModelExtension
{
    Q_OBJECT

public:
    /** @p specialFlagsFilter as for TreeNodeSortFilterProxyModel (0x1 hides supplements). */
    explicit ListWidgetProxyModel(int specialFlagsFilter = 0, QObject *parent = nullptr);
    ~ListWidgetProxyModel() override;
};
