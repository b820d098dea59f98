// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// What NodesElementWidget and ElementsElementWidget do alike with their element view.

#include "element/element.h"
#include "element/elementmodelextension.h"
#include "widgets/elementtreeview.h"

#include <QAbstractItemModel>

namespace ListView {

template<typename Widget> void connectView(Widget *widget, ElementTreeView *view)
{
    QObject::connect(view, &ElementTreeView::doubleClicked, widget, &Widget::choiceElement);
    QObject::connect(view, &ElementTreeView::customContextMenuRequested, widget,
                     &Widget::customContextMenuRequest);
    QObject::connect(view, &ElementTreeView::elementContextOperationChangedChanged, widget,
                     &Widget::elementContextOperationChanged);
    QObject::connect(view, &ElementTreeView::elementContextOperationChangedFocused, widget,
                     &Widget::elementContextOperationChangedFocused);
    QObject::connect(view, &ElementTreeView::elementContextOperationChangedSelected, widget,
                     &Widget::elementContextOperationChangedSelected);
}

// A double click opens the child in the module's tree: the tree follows the element's
// request to become current, and the list it leaves keeps no stale selection.
inline void choiceElement(ElementTreeView *view, const QModelIndex &index)
{
    const auto *model = dynamic_cast<const ElementModelExtension *>(view->model());
    Element *element = model && index.isValid() ? model->toElement(index) : nullptr;
    if (!element)
        return;
    view->clearSelection();
    element->emitSetCurrentNode();
}

} // namespace ListView
