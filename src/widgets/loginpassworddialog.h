// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

namespace Ui {
class LoginPasswordDialog;
}

/**
 * Asks for a login and its password. The login may hold only letters, digits, dots,
 * hyphens and underscores and must not begin with a hyphen (it reaches command lines);
 * anything else, or an empty login, is refused with a message and OK stays disabled.
 */
class OVTCOMMON_EXPORT LoginPasswordDialog : public QDialog
{
    Q_OBJECT

public:
    explicit LoginPasswordDialog(QWidget *parent = nullptr);
    /** Clears the password entry. */
    ~LoginPasswordDialog() override;

    /** Fills in the login and puts the focus on the password. */
    void setLogin(const QString &login);
    QString login() const;
    QString password() const;
    bool isAcceptable() const;

private:
    void validate();

    Ui::LoginPasswordDialog *_ui;
};
