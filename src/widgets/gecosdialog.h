// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QDialog>

namespace Ui {
class GecosDialog;
}

/**
 * Edits the GECOS field of an account: full name, room, work phone, home phone and other.
 *
 * Commas separate the fields and colons the account file's columns, so a field holding a
 * comma, a colon or a line feed is refused with a message under the fields and the OK button
 * stays disabled until it is corrected.
 */
class OVTCOMMON_EXPORT GecosDialog : public QDialog
{
    Q_OBJECT

public:
    explicit GecosDialog(QWidget *parent = nullptr);
    ~GecosDialog() override;

    /** Splits @p gecos at its commas into the five fields; what follows the fifth stays in it. */
    void setGecos(const QString &gecos);
    /** The five fields joined by commas, without trailing empty fields. */
    QString gecos() const;
    QString fullName() const;
    QString room() const;
    QString workPhone() const;
    QString homePhone() const;
    QString other() const;
    /** Whether every field is acceptable (what enables OK). */
    bool isAcceptable() const;

private:
    void validate();
    QStringList fields() const;

    Ui::GecosDialog *_ui;
};
