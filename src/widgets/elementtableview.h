// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QTableView>

class Element;

/**
 * A QTableView over an element model or proxy that tells, at the level of elements, what is
 * under the user's attention. The context menu policy is Qt::CustomContextMenu: the owning
 * widget shows the menu.
 *
 * - currentElementChangedStructure(): the selection changed (column 0 of its first row, or an
 *   invalid index) or the model is about to be reset.
 * - elementContextOperationChangedSelected(): the selection changed while the view has the
 *   focus, or rows were inserted or removed: the element of the first selected row, or null.
 * - elementContextOperationChangedFocused(): the view got the focus: the element selected.
 * - elementContextOperationChangedChanged(): the data of the selected row changed.
 *
 * Element signals need a model that is an ElementModelExtension; over any other model only
 * currentElementChangedStructure() is emitted.
 */
class OVTCOMMON_EXPORT ElementTableView : public QTableView
{
    Q_OBJECT

public:
    explicit ElementTableView(QWidget *parent = nullptr);
    ~ElementTableView() override;

    /** Moves the element signals from the old model and selection model to the new ones. */
    void setModel(QAbstractItemModel *model) override;

Q_SIGNALS:
    void currentElementChangedStructure(const QModelIndex &index);
    void elementContextOperationChangedChanged(Element *element);
    void elementContextOperationChangedFocused(Element *element);
    void elementContextOperationChangedSelected(Element *element);

public Q_SLOTS:
    void emitCurrentElementChanged_Selection(const QItemSelection &selected);
    void emitCurrentElementChanged_Changed(const QModelIndex &topLeft,
                                           const QModelIndex &bottomRight);
    void emitCurrentElementChanged_InsertRemove(const QModelIndex &parent);

protected:
    void focusInEvent(QFocusEvent *event) override;

private:
    void connectModel();
    void disconnectModel();

    QMetaObject::Connection _resetConnection;
};
