// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "comboboxdelegate.h"

#include "widgets/delegateeditor_p.h"

#include <QComboBox>

ComboBoxDelegate::ComboBoxDelegate(const QStringList &items, bool editable, QObject *parent)
    : QStyledItemDelegate(parent)
    , _items(items)
    , _editable(editable)
{ }

QStringList ComboBoxDelegate::items() const
{
    return _items;
}

void ComboBoxDelegate::setItems(const QStringList &items)
{
    _items = items;
}

QWidget *ComboBoxDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    auto *editor = new QComboBox(parent);
    editor->addItems(_items);
    editor->setEditable(_editable);
    OvtPrivate::nameEditor(editor, index);
    return editor;
}

void ComboBoxDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *combo = static_cast<QComboBox *>(editor);
    const QString text = index.data(Qt::EditRole).toString();
    const int found = combo->findText(text);
    if (found >= 0)
        combo->setCurrentIndex(found);
    else if (_editable)
        combo->setEditText(text);
}

void ComboBoxDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    model->setData(index, static_cast<QComboBox *>(editor)->currentText(), Qt::EditRole);
}
