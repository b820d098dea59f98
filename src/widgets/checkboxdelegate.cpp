// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "checkboxdelegate.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

namespace {

QStyleOptionButton checkOption(const QStyleOptionViewItem &option, const QModelIndex &index)
{
    QStyleOptionButton check;
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    const QRect box = style->subElementRect(QStyle::SE_CheckBoxIndicator, &check, option.widget);
    check.rect = QStyle::alignedRect(option.direction, Qt::AlignCenter, box.size(), option.rect);
    check.state = option.state & QStyle::State_Enabled;
    check.state |= index.data(Qt::EditRole).toBool() ? QStyle::State_On : QStyle::State_Off;
    return check;
}

} // namespace

CheckBoxDelegate::CheckBoxDelegate(QObject *parent)
    : QStyledItemDelegate(parent)
{ }

void CheckBoxDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                             const QModelIndex &index) const
{
    QStyleOptionViewItem background = option;
    initStyleOption(&background, index);
    background.text.clear();
    const QStyle *style = option.widget ? option.widget->style() : QApplication::style();
    style->drawControl(QStyle::CE_ItemViewItem, &background, painter, option.widget);
    const QStyleOptionButton check = checkOption(option, index);
    style->drawPrimitive(QStyle::PE_IndicatorCheckBox, &check, painter, option.widget);
}

QWidget *CheckBoxDelegate::createEditor(QWidget *, const QStyleOptionViewItem &,
                                        const QModelIndex &) const
{
    return nullptr;
}

bool CheckBoxDelegate::editorEvent(QEvent *event, QAbstractItemModel *model,
                                   const QStyleOptionViewItem &option, const QModelIndex &index)
{
    const Qt::ItemFlags flags = model->flags(index);
    if (!(flags & Qt::ItemIsEditable) || !(flags & Qt::ItemIsEnabled))
        return false;
    if (event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() != Qt::LeftButton
            || !checkOption(option, index).rect.contains(mouse->pos()))
            return false;
    } else if (event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent *>(event)->key();
        if (key != Qt::Key_Space && key != Qt::Key_Select)
            return false;
    } else {
        // Swallow the presses and double clicks, so that they do not start an editor.
        return event->type() == QEvent::MouseButtonPress
            || event->type() == QEvent::MouseButtonDblClick;
    }
    return model->setData(index, !index.data(Qt::EditRole).toBool(), Qt::EditRole);
}
