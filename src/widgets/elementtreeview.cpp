// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementtreeview.h"

#include "widgets/elementview_p.h"

ElementTreeView::ElementTreeView(QWidget *parent)
    : QTreeView(parent)
{
    setContextMenuPolicy(Qt::CustomContextMenu);
}

ElementTreeView::~ElementTreeView() = default;

void ElementTreeView::setModel(QAbstractItemModel *model)
{
    disconnectModel();
    QTreeView::setModel(model);
    connectModel();
}

void ElementTreeView::emitCurrentElementChanged_Selection(const QItemSelection &selected)
{
    ElementView::selectionChanged(this, selected);
}

void ElementTreeView::emitCurrentElementChanged_Changed(const QModelIndex &topLeft,
                                                        const QModelIndex &bottomRight)
{
    ElementView::dataChanged(this, topLeft, bottomRight);
}

void ElementTreeView::emitCurrentElementChanged_InsertRemove(const QModelIndex &)
{
    ElementView::rowsChanged(this);
}

void ElementTreeView::focusInEvent(QFocusEvent *event)
{
    ElementView::focusIn(this);
    QTreeView::focusInEvent(event);
}

void ElementTreeView::connectModel()
{
    ElementView::connectModel(this, _resetConnection);
}

void ElementTreeView::disconnectModel()
{
    ElementView::disconnectModel(this, _resetConnection);
}
