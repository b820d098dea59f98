// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementswidgetproxymodel.h"

#include <QRegExp>

ElementsWidgetProxyModel::ElementsWidgetProxyModel(int specialFlagsFilter, QObject *parent)
    : ListWidgetProxyModel(specialFlagsFilter, parent)
{ }

ElementsWidgetProxyModel::~ElementsWidgetProxyModel() = default;

bool ElementsWidgetProxyModel::filterAcceptsRow(int sourceRow,
                                                const QModelIndex &sourceParent) const
{
    if (sourceParent.isValid())
        return false;
    // The node-level filters only; the text is searched below, in the shown columns alone.
    if (!TreeNodeSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    const QRegExp expression = filterRegExp();
    if (expression.isEmpty() || !expression.isValid())
        return true;
    const QAbstractItemModel *source = sourceModel();
    const int columns = source->columnCount(sourceParent);
    for (int column = 1; column < columns; ++column) {
        const QString text = source->index(sourceRow, column, sourceParent).data().toString();
        if (text.indexOf(expression) != -1)
            return true;
    }
    return false;
}

bool ElementsWidgetProxyModel::filterAcceptsColumn(int sourceColumn,
                                                   const QModelIndex &sourceParent) const
{
    return sourceColumn > 0
        && ListWidgetProxyModel::filterAcceptsColumn(sourceColumn, sourceParent);
}
