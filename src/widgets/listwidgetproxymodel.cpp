// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "listwidgetproxymodel.h"

ListWidgetProxyModel::ListWidgetProxyModel(int specialFlagsFilter, QObject *parent)
    : FilterTreeNodeSortFilterProxyModel(specialFlagsFilter, parent)
{ }

ListWidgetProxyModel::~ListWidgetProxyModel() = default;
