// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodeswidgetproxymodel.h"

NodesWidgetProxyModel::NodesWidgetProxyModel(int specialFlagsFilter, QObject *parent)
    : ListWidgetProxyModel(specialFlagsFilter, parent)
{ }

NodesWidgetProxyModel::~NodesWidgetProxyModel() = default;

bool NodesWidgetProxyModel::filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const
{
    return !sourceParent.isValid()
        && ListWidgetProxyModel::filterAcceptsRow(sourceRow, sourceParent);
}
