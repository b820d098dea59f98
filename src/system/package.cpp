// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/package.h"

#include "system/process.h"

#include <QRegularExpression>

Package::Package(const QString &name)
    : QObject(nullptr)
    , _name(name)
{ }

bool Package::isInstalled() const
{
    // dpkg-query exits non-zero for an unknown package and prints nothing on standard output,
    // which is a plain "no" here, not an error.
    Process process;
    const QString output
        = process
              .simpleStart(QStringLiteral("dpkg-query"),
                           {QStringLiteral("-W"), QStringLiteral("-f=${Status}\n"), _name}, false)
              .output();

    // Only the prefix counts: "install ok half-installed" is installed as far as callers care,
    // "deinstall ok config-files" is not.
    static const QRegularExpression installed(QStringLiteral("^install ok"));
    const QStringList lines = output.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        if (line.contains(installed))
            return true;
    }
    return false;
}
