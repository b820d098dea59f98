// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "filtertreenodesortfilterproxymodel.h"

#include <QRegExp>

FilterTreeNodeSortFilterProxyModel::FilterTreeNodeSortFilterProxyModel(int specialFlagsFilter,
                                                                       QObject *parent)
    : TreeNodeSortFilterProxyModel(specialFlagsFilter, parent)
{ }

FilterTreeNodeSortFilterProxyModel::FilterTreeNodeSortFilterProxyModel(
    const QSet<int> &acceptColumns, int specialFlagsFilter, QObject *parent)
    : TreeNodeSortFilterProxyModel(acceptColumns, specialFlagsFilter, parent)
{ }

bool FilterTreeNodeSortFilterProxyModel::filterAcceptsRow(int sourceRow,
                                                          const QModelIndex &sourceParent) const
{
    if (!TreeNodeSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    // Not const: QString's search through a const expression copies it for every cell.
    QRegExp expression = filterRegExp();
    if (expression.isEmpty() || !expression.isValid())
        return true;

    const QAbstractItemModel *source = sourceModel();
    auto matches = [&](int column) {
        const QString text
            = sourceRowData(sourceRow, column, sourceParent, Qt::DisplayRole).toString();
        return text.indexOf(expression, 0) != -1;
    };
    if (_acceptColumns.isEmpty()) {
        const int columns = source->columnCount(sourceParent);
        for (int column = 0; column < columns; ++column) {
            if (matches(column))
                return true;
        }
        return false;
    }
    for (int column : _acceptColumns) {
        if (matches(column))
            return true;
    }
    return false;
}
