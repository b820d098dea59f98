// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "lineeditdelegate.h"

#include "widgets/delegateeditor_p.h"

#include <QLineEdit>
#include <QRegularExpressionValidator>

LineEditDelegate::LineEditDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{ }

LineEditDelegate::LineEditDelegate(const QRegularExpression &pattern, QObject *parent)
    : QStyledItemDelegate(parent)
    , _pattern(pattern)
{ }

QRegularExpression LineEditDelegate::pattern() const
{
    return _pattern;
}

void LineEditDelegate::setPattern(const QRegularExpression &pattern)
{
    _pattern = pattern;
}

QWidget *LineEditDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem &,
                                        const QModelIndex &index) const
{
    auto *editor = new QLineEdit(parent);
    editor->setFrame(false);
    if (!_pattern.pattern().isEmpty())
        editor->setValidator(new QRegularExpressionValidator(_pattern, editor));
    OvtPrivate::nameEditor(editor, index);
    return editor;
}

void LineEditDelegate::setModelData(QWidget *editor, QAbstractItemModel *model,
                                    const QModelIndex &index) const
{
    // The validator only stops typing; a half-typed entry can still be committed by leaving
    // the cell, and must not reach the record.
    auto *edit = static_cast<QLineEdit *>(editor);
    if (edit->hasAcceptableInput())
        model->setData(index, edit->text(), Qt::EditRole);
}
