// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QStringList>
#include <QStyledItemDelegate>

/**
 * Edits a cell of a record table by choosing one of a fixed list of texts in a combo box.
 * With editable set the user may also type a text of his own. The chosen text is written
 * through setData() under Qt::EditRole; a record that refuses it keeps its value.
 */
class OVTCOMMON_EXPORT ComboBoxDelegate : public QStyledItemDelegate
{
    Q_OBJECT

public:
    explicit ComboBoxDelegate(const QStringList &items, bool editable = false,
                              QObject *parent = nullptr);

    QStringList items() const;
    void setItems(const QStringList &items);

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model,
                      const QModelIndex &index) const override;

private:
    QStringList _items;
    bool _editable;
};
