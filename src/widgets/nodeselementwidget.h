// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/listelementwidget.h"

class ElementTreeView;

/**
 * Lists the children of an element, one row each, in an ElementTreeView over a
 * NodesWidgetProxyModel (supplements hidden). A double click makes the child current in the
 * module's tree; the view's context-menu request is passed on as this widget's
 * customContextMenuRequested(), in this widget's coordinates.
 */
class OVTCOMMON_EXPORT NodesElementWidget : public ListElementWidget
{
    Q_OBJECT

public:
    NodesElementWidget(const QString &elementType, Module &module,
                       bool (*isEditable)(const Module &), QWidget *parent = nullptr);
    ~NodesElementWidget() override;

    /** The form's view "_elementTreeView". */
    ElementTreeView *elementTreeView() const;

public Q_SLOTS:
    /** Shows the children of the element: the element becomes the model's root. */
    void read() override;
    /** Clears the selection and asks the element at @p index to become current. */
    void choiceElement(const QModelIndex &index);
    /** Emits customContextMenuRequested() with @p pos (in the view's viewport) mapped here. */
    void customContextMenuRequest(const QPoint &pos);

Q_SIGNALS:
    void elementContextOperationChangedFocused(Element *element);
    void elementContextOperationChangedSelected(Element *element);
};
