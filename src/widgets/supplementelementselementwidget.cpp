// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "supplementelementselementwidget.h"

SupplementElementsElementWidget::SupplementElementsElementWidget(const QString &elementType,
                                                                 const QString &title,
                                                                 Module &module,
                                                                 bool (*isEditable)(const Module &),
                                                                 QWidget *parent)
    : ElementsElementWidget(elementType, module, isEditable, parent)
{
    setWindowTitle(title);
}

SupplementElementsElementWidget::~SupplementElementsElementWidget() = default;
