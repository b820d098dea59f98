// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "nodeselementwidget.h"

#include "element/elementmodel.h"
#include "ui_nodeselementwidget.h"
#include "widgets/listview_p.h"
#include "widgets/nodeswidgetproxymodel.h"

NodesElementWidget::NodesElementWidget(const QString &elementType, Module &module,
                                       bool (*isEditable)(const Module &), QWidget *parent)
    : ListElementWidget(elementType, module, isEditable, parent)
{
    // The form's widgets are children of this widget; the generated holder is not kept.
    Ui::NodesElementWidget().setupUi(this);
    _proxyModel = new NodesWidgetProxyModel(0x1, this);
    _proxyModel->setSourceModel(_elementModel);
    elementTreeView()->setModel(_proxyModel);
    ListView::connectView(this, elementTreeView());
}

NodesElementWidget::~NodesElementWidget() = default;

ElementTreeView *NodesElementWidget::elementTreeView() const
{
    return findChild<ElementTreeView *>(QStringLiteral("_elementTreeView"),
                                        Qt::FindDirectChildrenOnly);
}

void NodesElementWidget::read()
{
    _elementModel->setRootNode(_element);
}

void NodesElementWidget::choiceElement(const QModelIndex &index)
{
    ListView::choiceElement(elementTreeView(), index);
}

void NodesElementWidget::customContextMenuRequest(const QPoint &pos)
{
    emit customContextMenuRequested(elementTreeView()->viewport()->mapTo(this, pos));
}
