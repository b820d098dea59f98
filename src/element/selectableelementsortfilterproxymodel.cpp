// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "selectableelementsortfilterproxymodel.h"

SelectableElementSortFilterProxyModel::SelectableElementSortFilterProxyModel(QObject *parent)
    : SelectableElementSortFilterProxyModel(QSet<int>(), parent)
{ }

SelectableElementSortFilterProxyModel::SelectableElementSortFilterProxyModel(
    const QSet<int> &acceptColumns, QObject *parent)
    : ElementSortFilterProxyModel(acceptColumns, 0x2, parent)
    , _selectionDisplayRole(Qt::DisplayRole)
{ }

int SelectableElementSortFilterProxyModel::selectionDisplayRole() const
{
    return _selectionDisplayRole;
}

void SelectableElementSortFilterProxyModel::setSelectionDisplayRole(int role)
{
    _selectionDisplayRole = role;
}

QVariant SelectableElementSortFilterProxyModel::data(const QModelIndex &index, int role) const
{
    return ElementSortFilterProxyModel::data(
        index, role == Qt::DisplayRole ? _selectionDisplayRole : role);
}
