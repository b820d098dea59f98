// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "passwordchangedialog.h"

#include "ui_passwordchangedialog.h"
#include "widgets/inputverdict_p.h"

PasswordChangeDialog::PasswordChangeDialog(QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::PasswordChangeDialog)
{
    _ui->setupUi(this);
    connect(_ui->_passwordLineEdit, &QLineEdit::textChanged, this, &PasswordChangeDialog::validate);
    connect(_ui->_confirmLineEdit, &QLineEdit::textChanged, this, &PasswordChangeDialog::validate);
    connect(_ui->_buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    validate();
}

PasswordChangeDialog::~PasswordChangeDialog()
{
    _ui->_passwordLineEdit->clear();
    _ui->_confirmLineEdit->clear();
    delete _ui;
}

QString PasswordChangeDialog::password() const
{
    return isAcceptable() ? _ui->_passwordLineEdit->text() : QString();
}

bool PasswordChangeDialog::isAcceptable() const
{
    return !_ui->_passwordLineEdit->text().isEmpty()
        && _ui->_passwordLineEdit->text() == _ui->_confirmLineEdit->text();
}

void PasswordChangeDialog::validate()
{
    QString error;
    if (_ui->_passwordLineEdit->text().isEmpty())
        error = tr("The password must not be empty.");
    else if (_ui->_passwordLineEdit->text() != _ui->_confirmLineEdit->text())
        error = tr("The passwords do not match.");
    OvtPrivate::showInputVerdict(_ui->_errorLabel, _ui->_buttonBox, error);
}
