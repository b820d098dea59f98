// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/elementwidget.h"

class ElementModel;
class ListWidgetProxyModel;

/**
 * Base of the widgets that list the children of an element. Its element type is given to the
 * constructor, which also creates the element model (owned by the widget); subclasses create
 * the sort/filter proxy that their view shows.
 */
class OVTCOMMON_EXPORT ListElementWidget : public ElementWidget
{
    Q_OBJECT

public:
    ListElementWidget(const QString &elementType, Module &module,
                      bool (*isEditable)(const Module &), QWidget *parent = nullptr);
    ~ListElementWidget() override;

    ElementModel *elementModel() const;
    ListWidgetProxyModel *proxyModel() const;

protected:
    ElementModel *_elementModel; // owned by the widget through Qt parenthood
    ListWidgetProxyModel *_proxyModel; // created and owned by subclasses; null here
};
