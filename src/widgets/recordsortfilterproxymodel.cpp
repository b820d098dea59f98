// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "recordsortfilterproxymodel.h"

RecordSortFilterProxyModel::RecordSortFilterProxyModel(QObject *parent)
    : QSortFilterProxyModel(parent)
{ }

bool RecordSortFilterProxyModel::filterAcceptsRow(int sourceRow,
                                                  const QModelIndex &sourceParent) const
{
    const QAbstractItemModel *source = sourceModel();
    if (!source)
        return false;
    const QRegExp expression = filterRegExp();
    if (expression.isEmpty() || !expression.isValid())
        return true;
    for (int column = 0; column < source->columnCount(sourceParent); ++column) {
        const QString text = source->index(sourceRow, column, sourceParent).data().toString();
        if (expression.indexIn(text) != -1)
            return true;
    }
    return false;
}
