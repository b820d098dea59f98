// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementsortfilterproxymodel.h"

ElementSortFilterProxyModel::ElementSortFilterProxyModel(int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(specialFlagsFilter, parent)
{ }

ElementSortFilterProxyModel::ElementSortFilterProxyModel(const QSet<int> &acceptColumns,
                                                         int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(acceptColumns, specialFlagsFilter, parent)
{ }

ElementSortFilterProxyModel::~ElementSortFilterProxyModel() = default;
