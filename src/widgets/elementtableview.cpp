// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementtableview.h"

#include "widgets/elementview_p.h"

#include <QHeaderView>

ElementTableView::ElementTableView(QWidget *parent)
    : QTableView(parent)
{
    setContextMenuPolicy(Qt::CustomContextMenu);
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

ElementTableView::~ElementTableView() = default;

void ElementTableView::setModel(QAbstractItemModel *model)
{
    disconnectModel();
    QTableView::setModel(model);
    connectModel();
}

void ElementTableView::emitCurrentElementChanged_Selection(const QItemSelection &selected)
{
    ElementView::selectionChanged(this, selected);
}

void ElementTableView::emitCurrentElementChanged_Changed(const QModelIndex &topLeft,
                                                         const QModelIndex &bottomRight)
{
    ElementView::dataChanged(this, topLeft, bottomRight);
}

void ElementTableView::emitCurrentElementChanged_InsertRemove(const QModelIndex &)
{
    ElementView::rowsChanged(this);
}

void ElementTableView::focusInEvent(QFocusEvent *event)
{
    ElementView::focusIn(this);
    QTableView::focusInEvent(event);
}

void ElementTableView::connectModel()
{
    ElementView::connectModel(this, _resetConnection);
}

void ElementTableView::disconnectModel()
{
    ElementView::disconnectModel(this, _resetConnection);
}
