#pragma once

#include <QDialogButtonBox>
#include <QLabel>
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
}

} // namespace OvtPrivate
