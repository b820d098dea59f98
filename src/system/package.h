// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QObject>
#include <QString>

/**
 * A Debian package, asked about through the package database (dpkg-query).
 */
class OVTCOMMON_EXPORT Package : public QObject
{
    Q_OBJECT

public:
    /** @p name may be a dpkg-query pattern such as "postgresql-[0-9]*". */
    explicit Package(const QString &name);

    /**
     * True when the package database reports the package (or, for a pattern, one of the
     * packages it matches) as installed. An unknown package gives false. Throws AppException
     * when dpkg-query cannot be run or does not finish within 30 seconds.
     */
    bool isInstalled() const;

private:
    QString _name;
};
