// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QByteArray>
#include <QException>
#include <QMetaType>
#include <QString>

/**
 * The exception thrown by the process, package and PostgreSQL helpers.
 *
 * It carries one text, already translated and with its arguments filled in, ready to be
 * shown to the user through getText().
 *
 * raise() and clone() are deliberately those of QException: an AppException that crosses a
 * thread boundary through QtConcurrent arrives as a plain QException. Code that runs the helpers
 * in a worker catches AppException there and passes it on by value (it is a registered
 * meta-type, so it can travel through queued connections).
 */
class OVTCOMMON_EXPORT AppException : public QException
{
public:
    explicit AppException(const QString &text = QString());
    ~AppException() override;

    /** The translated message. */
    const QString &getText() const;

    /** The message in the local 8-bit encoding; valid as long as the exception lives. */
    const char *what() const noexcept override;

private:
    QString _text;
    QByteArray _localText;
};

Q_DECLARE_METATYPE(AppException)
