#include "task/blockdialog.h"

BlockDialog::BlockDialog(QWidget *parent)
    : QDialog(parent)
{
    setModal(true);
    setAttribute(Qt::WA_DontShowOnScreen);
}

BlockDialog::~BlockDialog() = default;
