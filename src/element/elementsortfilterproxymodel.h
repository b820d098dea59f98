// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementmodelextension.h"
#include "treenode/treenodesortfilterproxymodel.h"

/**
 * A node-tree proxy over an element model that also answers which element is at an index.
 *
 * With bit 0x1 of @p specialFlagsFilter supplement elements are hidden; with bit 0x2 only
 * selectable nodes are kept.
 */
class OVTCOMMON_EXPORT ElementSortFilterProxyModel : public TreeNodeSortFilterProxyModel,
                                                     public ElementModelExtension
{
    Q_OBJECT

public:
    explicit ElementSortFilterProxyModel(int specialFlagsFilter, QObject *parent = nullptr);
    /** @p acceptColumns are source columns; an empty set lets every column through. */
    ElementSortFilterProxyModel(const QSet<int> &acceptColumns, int specialFlagsFilter,
                                QObject *parent = nullptr);
    ~ElementSortFilterProxyModel() override;
};
