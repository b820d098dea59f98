// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QObject>
#include <QString>
#include <QStringList>

/**
 * One PostgreSQL cluster as the distribution's cluster tools list it.
 *
 * Clusters come from fromString() (one line of "pg_lsclusters --no-header") and, through
 * PgsqlManager, from the whole listing. The operations run the cluster tools and psql as the
 * database superuser, block for up to 30 seconds each and throw AppException on failure.
 */
class OVTCOMMON_EXPORT PgsqlCluster : public QObject
{
    Q_OBJECT

public:
    ~PgsqlCluster() override;

    /**
     * Parses one listing line "version name port status owner data-directory log-file". The line
     * is split at runs of blanks, so the padded columns of a listing of several clusters come
     * out right; the log file is the rest of the line. Throws AppException ("Cluster info not
     * valid '...'") when the line has fewer columns or a port that is not decimal. The caller
     * owns the new cluster, which has no parent.
     */
    static PgsqlCluster *fromString(const QString &line);

    QString version() const { return _version; }
    QString name() const { return _name; }
    int port() const { return _port; }
    QString status() const { return _status; }
    QString owner() const { return _owner; }
    QString dataDirectory() const { return _dataDirectory; }
    QString logFile() const { return _logFile; }

    /** True when "pg_ctlcluster <version> <name> status" reports the cluster running. */
    bool isWork() const;

    /** Starts the cluster with pg_ctlcluster; throws AppException when that fails. */
    void start() const;

    /**
     * Runs @p sql through psql on this cluster's port as the "postgres" user (via su) with
     * untranslated psql messages, and returns psql's output. The SQL is put between double
     * quotes of the shell command with \\, ", $ and ` escaped, so psql receives exactly @p sql
     * and the shell runs nothing of it.
     */
    QString sqlRequest(const QString &sql) const;

    /** The database user names, in psql's order. */
    QStringList usernames() const;

    /**
     * Creates the user @p name unless it exists (compared case-sensitively with usernames()).
     *
     * Any name is safe: one of lower-case ASCII letters, digits and underscores, not starting
     * with a digit, goes into the SQL as it is; any other is sent as a quoted identifier (an
     * embedded " doubled), so the role is named exactly @p name ("Bob" stays "Bob") and no text
     * of it runs as SQL or shell. Throws AppException before any process starts when @p name
     * is empty, longer than 63 bytes in UTF-8 or holds a control character.
     */
    void createUser(const QString &name) const;

    /** Drops the user @p name if it exists; names are treated as by createUser(). */
    void deleteUser(const QString &name) const;

private:
    PgsqlCluster();

    QString _version;
    QString _name;
    int _port = 0;
    QString _status;
    QString _owner;
    QString _dataDirectory;
    QString _logFile;
};
