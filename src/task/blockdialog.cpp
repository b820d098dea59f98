// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/blockdialog.h"

BlockDialog::BlockDialog(QWidget *parent)
    : QDialog(parent)
{
    setModal(true);
    setAttribute(Qt::WA_DontShowOnScreen);
}

BlockDialog::~BlockDialog() = default;
