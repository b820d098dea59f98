// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "loginpassworddialog.h"

#include "ui_loginpassworddialog.h"
#include "widgets/inputverdict_p.h"

#include <QRegularExpression>

namespace {

const QRegularExpression loginPattern(QStringLiteral("^[A-Za-z0-9._][A-Za-z0-9._-]*$"));

} // namespace

LoginPasswordDialog::LoginPasswordDialog(QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::LoginPasswordDialog)
{
    _ui->setupUi(this);
    connect(_ui->_loginLineEdit, &QLineEdit::textChanged, this, &LoginPasswordDialog::validate);
    connect(_ui->_buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    validate();
}

LoginPasswordDialog::~LoginPasswordDialog()
{
    _ui->_passwordLineEdit->clear();
    delete _ui;
}

void LoginPasswordDialog::setLogin(const QString &login)
{
    _ui->_loginLineEdit->setText(login);
    _ui->_passwordLineEdit->setFocus();
}

QString LoginPasswordDialog::login() const
{
    return _ui->_loginLineEdit->text();
}

QString LoginPasswordDialog::password() const
{
    return _ui->_passwordLineEdit->text();
}

bool LoginPasswordDialog::isAcceptable() const
{
    return loginPattern.match(login()).hasMatch();
}

void LoginPasswordDialog::validate()
{
    QString error;
    if (login().isEmpty())
        error = tr("Enter a login.");
    else if (!isAcceptable())
        error = tr("A login may hold only letters, digits, dots, hyphens and underscores and "
                   "must not begin with a hyphen.");
    OvtPrivate::showInputVerdict(_ui->_errorLabel, _ui->_buttonBox, error);
}
