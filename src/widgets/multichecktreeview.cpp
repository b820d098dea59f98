// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "multichecktreeview.h"

MultiCheckTreeView::MultiCheckTreeView(QWidget *parent)
    : QTreeView(parent)
    , _checkColumn(0)
    , _propagating(false)
{ }

void MultiCheckTreeView::setModel(QAbstractItemModel *model)
{
    if (_watched)
        _watched->disconnect(this);
    QTreeView::setModel(model);
    _watched = model;
    if (model)
        connect(model, &QAbstractItemModel::dataChanged, this, &MultiCheckTreeView::onDataChanged);
}

int MultiCheckTreeView::checkColumn() const
{
    return _checkColumn;
}

void MultiCheckTreeView::setCheckColumn(int column)
{
    _checkColumn = column;
}

QModelIndexList MultiCheckTreeView::checkedIndexes() const
{
    QModelIndexList checked;
    if (model())
        collectChecked(QModelIndex(), &checked);
    return checked;
}

void MultiCheckTreeView::collectChecked(const QModelIndex &parent, QModelIndexList *checked) const
{
    for (int row = 0; row < model()->rowCount(parent); ++row) {
        const QModelIndex index = model()->index(row, _checkColumn, parent);
        if (index.data(Qt::CheckStateRole).toInt() == Qt::Checked)
            *checked << index;
        collectChecked(index.siblingAtColumn(0), checked);
    }
}

void MultiCheckTreeView::onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                                       const QVector<int> &roles)
{
    // The view's own writes come back here; they are already consistent.
    if (_propagating || (!roles.isEmpty() && !roles.contains(Qt::CheckStateRole))
        || _checkColumn < topLeft.column() || _checkColumn > bottomRight.column())
        return;
    _propagating = true;
    for (int row = topLeft.row(); row <= bottomRight.row(); ++row) {
        const QModelIndex index = topLeft.sibling(row, _checkColumn);
        const QVariant state = index.data(Qt::CheckStateRole);
        if (state.toInt() != Qt::PartiallyChecked)
            setSubtree(index, state);
        updateAncestors(index);
    }
    _propagating = false;
}

void MultiCheckTreeView::setSubtree(const QModelIndex &index, const QVariant &state)
{
    const QModelIndex parent = index.siblingAtColumn(0);
    for (int row = 0; row < model()->rowCount(parent); ++row) {
        const QModelIndex child = model()->index(row, _checkColumn, parent);
        if (child.data(Qt::CheckStateRole) != state)
            model()->setData(child, state, Qt::CheckStateRole);
        setSubtree(child, state);
    }
}

void MultiCheckTreeView::updateAncestors(const QModelIndex &index)
{
    for (QModelIndex parent = index.parent(); parent.isValid(); parent = parent.parent()) {
        int checked = 0;
        int unchecked = 0;
        const int rows = model()->rowCount(parent);
        for (int row = 0; row < rows; ++row) {
            const int state
                = model()->index(row, _checkColumn, parent).data(Qt::CheckStateRole).toInt();
            checked += state == Qt::Checked;
            unchecked += state == Qt::Unchecked;
        }
        const Qt::CheckState state = checked == rows ? Qt::Checked
            : unchecked == rows                      ? Qt::Unchecked
                                                     : Qt::PartiallyChecked;
        const QModelIndex cell = parent.siblingAtColumn(_checkColumn);
        if (cell.data(Qt::CheckStateRole).toInt() != state)
            model()->setData(cell, state, Qt::CheckStateRole);
    }
}
