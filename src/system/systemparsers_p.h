// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// Private: never installed. The pure, side-effect-free parsers of the system helpers' input.
// They are exported only so that tests and fuzz targets can call them directly; tools must not.

#include "ovtcommon_export.h"
#include "system/switchgroup.h"

#include <QByteArray>
#include <QList>
#include <QString>
#include <QStringList>

namespace Ovt {
namespace Internal {

/** The columns of one "pg_lsclusters --no-header" line. */
struct ClusterFields
{
    QString version;
    QString name;
    int port = 0;
    QString status;
    QString owner;
    QString dataDirectory;
    QString logFile;
};

/**
 * Splits one listing line at runs of blanks (the tool pads its columns when it lists several
 * clusters). The first six columns are single words and the port is decimal; the log file is the
 * rest of the line. Returns false, leaving @p fields alone, when the line is not a cluster line.
 */
OVTCOMMON_EXPORT bool parseClusterLine(const QString &line, ClusterFields *fields);

/**
 * Reads psql's output of the user query (a "usename" column and a row count) into the user
 * names, trimmed, in output order. Returns false when the output is not such a table.
 */
OVTCOMMON_EXPORT bool parseUserList(const QString &output, QStringList *users);

/** One switch as the security monitor describes it, with the optional keys defaulted. */
struct SwitchRecord
{
    QString id;
    QString name;
    QString longName;
    QString script;
    QString extra;
    QString tooltip;
    bool hasSlave = false;
    QString slave;
    SwitchGroup group = SwitchGroup::System;
    bool gray = false;
    bool enableNeedReboot = false;
    bool disableNeedReboot = false;
};

/**
 * Validates the monitor's JSON switch list strictly and returns its records in array order.
 * Throws std::runtime_error with the translated reason (UTF-8) at the first fault.
 */
OVTCOMMON_EXPORT QList<SwitchRecord> parseSwitches(const QByteArray &json);

} // namespace Internal
} // namespace Ovt
