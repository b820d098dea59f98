// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "typicalmessagesdialog.h"

#include "messages/typicalmessagesmodel.h"
#include "ui_typicalmessagesdialog.h"

#include <QHeaderView>
#include <QSettings>

namespace {

const QString geometryKey = QStringLiteral("typicalMessagesDialog/typicalMessagesDialogGeometry");

} // namespace

TypicalMessagesDialog::TypicalMessagesDialog(QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::TypicalMessagesDialog)
    , _model(new TypicalMessagesModel(this))
{
    _ui->setupUi(this);
    _ui->treeViewMessages->setModel(_model);
    _ui->treeViewMessages->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    connect(_ui->buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_ui->buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    restoreGeometry(QSettings().value(geometryKey).toByteArray());
}

TypicalMessagesDialog::~TypicalMessagesDialog()
{
    QSettings().setValue(geometryKey, saveGeometry());
    delete _ui;
}

TypicalMessagesModel *TypicalMessagesDialog::model() const
{
    return _model;
}
