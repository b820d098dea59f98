// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

namespace Ui {
class PasswordChangeDialog;
}

/**
 * Asks for a new password twice. An empty password or two entries that differ are refused
 * with a message and the OK button stays disabled until both entries agree.
 */
class OVTCOMMON_EXPORT PasswordChangeDialog : public QDialog
{
    Q_OBJECT

public:
    explicit PasswordChangeDialog(QWidget *parent = nullptr);
    /** Clears both entries, so the password does not outlive the dialog in its widgets. */
    ~PasswordChangeDialog() override;

    /** The accepted new password (both entries agree whenever OK is enabled). */
    QString password() const;
    bool isAcceptable() const;

private:
    void validate();

    Ui::PasswordChangeDialog *_ui;
};
