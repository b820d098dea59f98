// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// The element-level signals of ElementTreeView and ElementTableView, written once for both.

#include "element/element.h"
#include "element/elementmodelextension.h"

#include <QAbstractItemView>
#include <QItemSelectionModel>

namespace ElementView {

inline ElementModelExtension *extension(const QAbstractItemView *view)
{
    return dynamic_cast<ElementModelExtension *>(view->model());
}

// Column 0 of the first selected row: the element of a row sits in its first column.
inline QModelIndex firstSelected(const QAbstractItemView *view)
{
    const QItemSelectionModel *selection = view->selectionModel();
    if (!selection)
        return QModelIndex();
    const QModelIndexList indexes = selection->selectedIndexes();
    return indexes.isEmpty() ? QModelIndex() : indexes.first().siblingAtColumn(0);
}

inline Element *elementAt(const QAbstractItemView *view, const QModelIndex &index)
{
    const ElementModelExtension *model = extension(view);
    return model && index.isValid() ? model->toElement(index) : nullptr;
}

template<typename View> void selectionChanged(View *view, const QItemSelection &selected)
{
    const QModelIndexList indexes = selected.indexes();
    const QModelIndex index
        = indexes.isEmpty() ? QModelIndex() : indexes.first().siblingAtColumn(0);
    emit view->currentElementChangedStructure(index);
    // Selections made by code while the user works elsewhere must not move the menus.
    if (view->hasFocus() && extension(view))
        emit view->elementContextOperationChangedSelected(elementAt(view, index));
}

template<typename View> void focusIn(View *view)
{
    if (extension(view))
        emit view->elementContextOperationChangedFocused(elementAt(view, firstSelected(view)));
}

template<typename View>
void dataChanged(View *view, const QModelIndex &topLeft, const QModelIndex &bottomRight)
{
    const QModelIndex current = firstSelected(view);
    if (current.isValid() && current.parent() == topLeft.parent() && current.row() >= topLeft.row()
        && current.row() <= bottomRight.row() && extension(view))
        emit view->elementContextOperationChangedChanged(elementAt(view, current));
}

// The selection model keeps its indexes persistent through inserts and removals, so what it
// holds afterwards is the row still selected, or nothing when the selected row went away.
template<typename View> void rowsChanged(View *view)
{
    if (extension(view))
        emit view->elementContextOperationChangedSelected(elementAt(view, firstSelected(view)));
}

template<typename View> void connectModel(View *view, QMetaObject::Connection &reset)
{
    using M = QAbstractItemModel;
    if (M *model = view->model()) {
        QObject::connect(model, &M::rowsInserted, view,
                         &View::emitCurrentElementChanged_InsertRemove);
        QObject::connect(model, &M::rowsRemoved, view,
                         &View::emitCurrentElementChanged_InsertRemove);
        QObject::connect(model, &M::dataChanged, view, &View::emitCurrentElementChanged_Changed);
        reset = QObject::connect(model, &M::modelAboutToBeReset, view, [view] {
            emit view->currentElementChangedStructure(QModelIndex());
        });
    }
    if (QItemSelectionModel *selection = view->selectionModel())
        QObject::connect(selection, &QItemSelectionModel::selectionChanged, view,
                         &View::emitCurrentElementChanged_Selection);
}

template<typename View> void disconnectModel(View *view, QMetaObject::Connection &reset)
{
    // Only our own connections: the view's base class is connected to the same model.
    using M = QAbstractItemModel;
    if (M *model = view->model()) {
        QObject::disconnect(model, &M::rowsInserted, view,
                            &View::emitCurrentElementChanged_InsertRemove);
        QObject::disconnect(model, &M::rowsRemoved, view,
                            &View::emitCurrentElementChanged_InsertRemove);
        QObject::disconnect(model, &M::dataChanged, view, &View::emitCurrentElementChanged_Changed);
    }
    QObject::disconnect(reset);
    if (QItemSelectionModel *selection = view->selectionModel())
        QObject::disconnect(selection, &QItemSelectionModel::selectionChanged, view,
                            &View::emitCurrentElementChanged_Selection);
}

} // namespace ElementView
