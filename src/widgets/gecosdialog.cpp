// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "gecosdialog.h"

#include "ui_gecosdialog.h"
#include "widgets/inputverdict_p.h"

#include <QRegularExpression>

namespace {

const QRegularExpression forbidden(QStringLiteral("[,:\\r\\n]"));

} // namespace

GecosDialog::GecosDialog(QWidget *parent)
    : QDialog(parent)
    , _ui(new Ui::GecosDialog)
{
    _ui->setupUi(this);
    for (QLineEdit *edit : findChildren<QLineEdit *>())
        connect(edit, &QLineEdit::textChanged, this, &GecosDialog::validate);
    connect(_ui->_buttonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(_ui->_buttonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    validate();
}

GecosDialog::~GecosDialog()
{
    delete _ui;
}

void GecosDialog::setGecos(const QString &gecos)
{
    const QStringList parts = gecos.split(QLatin1Char(','));
    _ui->_fullNameLineEdit->setText(parts.value(0));
    _ui->_roomLineEdit->setText(parts.value(1));
    _ui->_workPhoneLineEdit->setText(parts.value(2));
    _ui->_homePhoneLineEdit->setText(parts.value(3));
    _ui->_otherLineEdit->setText(parts.mid(4).join(QLatin1Char(',')));
}

QStringList GecosDialog::fields() const
{
    return {fullName(), room(), workPhone(), homePhone(), other()};
}

QString GecosDialog::gecos() const
{
    QStringList parts = fields();
    while (!parts.isEmpty() && parts.last().isEmpty())
        parts.removeLast();
    return parts.join(QLatin1Char(','));
}

QString GecosDialog::fullName() const
{
    return _ui->_fullNameLineEdit->text();
}

QString GecosDialog::room() const
{
    return _ui->_roomLineEdit->text();
}

QString GecosDialog::workPhone() const
{
    return _ui->_workPhoneLineEdit->text();
}

QString GecosDialog::homePhone() const
{
    return _ui->_homePhoneLineEdit->text();
}

QString GecosDialog::other() const
{
    return _ui->_otherLineEdit->text();
}

bool GecosDialog::isAcceptable() const
{
    return !fields().join(QString()).contains(forbidden);
}

void GecosDialog::validate()
{
    const QList<QLineEdit *> edits {_ui->_fullNameLineEdit, _ui->_roomLineEdit,
                                    _ui->_workPhoneLineEdit, _ui->_homePhoneLineEdit,
                                    _ui->_otherLineEdit};
    QString error;
    for (const QLineEdit *edit : edits) {
        if (edit->text().contains(forbidden)) {
            error = tr("The field \"%1\" must not contain commas, colons or line feeds.")
                        .arg(edit->accessibleName());
            break;
        }
    }
    OvtPrivate::showInputVerdict(_ui->_errorLabel, _ui->_buttonBox, error);
}
