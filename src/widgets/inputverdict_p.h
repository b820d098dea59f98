// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QDialogButtonBox>
#include <QLabel>
#include <QLayout>
#include <QPushButton>

namespace OvtPrivate {

/**
 * Shows why the input of a small dialog is refused, or nothing when it is acceptable, and
 * lets the OK button follow: a dialog never accepts what it has just called wrong.
 */
inline void showInputVerdict(QLabel *label, QDialogButtonBox *buttons, const QString &error)
{
    label->setText(error);
    label->setVisible(!error.isEmpty());
    QPalette palette = label->palette();
    palette.setColor(QPalette::WindowText, Qt::darkRed);
    label->setPalette(palette);
    buttons->button(QDialogButtonBox::Ok)->setEnabled(error.isEmpty());
    // A wrapped message needs more height than the dialog had without it: grow, never clip.
    QWidget *window = label->window();
    if (window->isVisible() && window->layout()) {
        window->layout()->activate();
        const int needed = window->layout()->hasHeightForWidth()
            ? window->layout()->totalHeightForWidth(window->width())
            : window->layout()->totalSizeHint().height();
        if (needed > window->height())
            window->resize(window->width(), needed);
    }
}

} // namespace OvtPrivate
