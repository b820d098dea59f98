// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodesortfilterproxymodel.h"

/**
 * A node-tree proxy that also filters rows by the proxy's filterRegExp().
 *
 * A row stays when the expression is found in the display text of one of its accept columns
 * (all source columns when there are none). An empty or invalid expression keeps every row
 * that the special flags let through. Each row is judged alone: a parent that does not match
 * is hidden with all its descendants, even when one of them would match.
 */
class OVTCOMMON_EXPORT FilterTreeNodeSortFilterProxyModel : public TreeNodeSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit FilterTreeNodeSortFilterProxyModel(int specialFlagsFilter = 0,
                                                QObject *parent = nullptr);
    FilterTreeNodeSortFilterProxyModel(const QSet<int> &acceptColumns, int specialFlagsFilter,
                                       QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
};
