// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QStyledItemDelegate>

/**
 * Shows a boolean cell of a record table as a centred check box without text and toggles it
 * with a click or the space key, writing the new bool through setData() under Qt::EditRole.
 * A cell without Qt::ItemIsEditable or Qt::ItemIsEnabled shows its state but does not toggle.
 */
class OVTCOMMON_EXPORT CheckBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit CheckBoxDelegate(QObject *parent = nullptr);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    /** No editor: the cell toggles in place. */
    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                     const QModelIndex &index) override;
};
