// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "listelementwidget.h"

#include "element/elementmodel.h"

ListElementWidget::ListElementWidget(const QString &elementType, Module &module,
                                     bool (*isEditable)(const Module &), QWidget *parent)
    : ElementWidget(module, isEditable, parent)
    , _elementModel(new ElementModel(this))
    , _proxyModel(nullptr)
{
    _elementType = elementType;
}

ListElementWidget::~ListElementWidget() = default;

ElementModel *ListElementWidget::elementModel() const
{
    return _elementModel;
}

ListWidgetProxyModel *ListElementWidget::proxyModel() const
{
    return _proxyModel;
}
