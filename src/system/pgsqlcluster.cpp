// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/pgsqlcluster.h"

#include "system/appexception.h"
#include "system/process.h"
#include "system/systemparsers_p.h"

#include <QProcessEnvironment>
#include <QRegularExpression>

namespace {

const QString userQuery = QStringLiteral("SELECT u.usename FROM pg_catalog.pg_user u;");

constexpr int maxIdentifierBytes = 63; // PostgreSQL's NAMEDATALEN - 1

// Characters that keep their meaning inside a shell's double quotes.
QString escapeForDoubleQuotes(const QString &text)
{
    QString escaped;
    escaped.reserve(text.size());
    for (const QChar c : text) {
        if (c == QLatin1Char('\\') || c == QLatin1Char('"') || c == QLatin1Char('$')
            || c == QLatin1Char('`'))
            escaped += QLatin1Char('\\');
        escaped += c;
    }
    return escaped;
}

bool isPlainIdentifier(const QString &name)
{
    static const QRegularExpression plain(QStringLiteral("^[a-z_][a-z0-9_]*$"));
    return plain.match(name).hasMatch();
}

// The user name as SQL: a plain identifier as it is (today's command lines stay the same),
// anything else as a quoted identifier, so that it names exactly this role and nothing runs.
QString userIdentifier(const QString &name)
{
    bool control = false;
    for (const QChar c : name)
        control = control || c.category() == QChar::Other_Control;
    if (name.isEmpty() || name.toUtf8().size() > maxIdentifierBytes || control)
        throw AppException(PgsqlCluster::tr("User name '%1' is not valid").arg(name));
    if (isPlainIdentifier(name))
        return name;
    return QLatin1Char('"') + QString(name).replace(QLatin1Char('"'), QStringLiteral("\"\""))
        + QLatin1Char('"');
}

} // namespace

PgsqlCluster::PgsqlCluster()
    : QObject(nullptr)
{ }

PgsqlCluster::~PgsqlCluster() = default;

PgsqlCluster *PgsqlCluster::fromString(const QString &line)
{
    Ovt::Internal::ClusterFields fields;
    if (!Ovt::Internal::parseClusterLine(line, &fields))
        throw AppException(tr("Cluster info not valid '%1'").arg(line));

    auto *cluster = new PgsqlCluster;
    cluster->_version = fields.version;
    cluster->_name = fields.name;
    cluster->_port = fields.port;
    cluster->_status = fields.status;
    cluster->_owner = fields.owner;
    cluster->_dataDirectory = fields.dataDirectory;
    cluster->_logFile = fields.logFile;
    return cluster;
}

bool PgsqlCluster::isWork() const
{
    Process process;
    process.simpleStart(QStringLiteral("pg_ctlcluster"),
                        {_version, _name, QStringLiteral("status")}, false);
    return process.exitCode() == 0;
}

void PgsqlCluster::start() const
{
    Process().simpleStart(QStringLiteral("pg_ctlcluster"),
                          {_version, _name, QStringLiteral("start")}, true);
}

QString PgsqlCluster::sqlRequest(const QString &sql) const
{
    // su hands the command to a shell: inside its double quotes only these four characters
    // still mean something, so escaping them gives psql exactly the statement.
    const QString command = QStringLiteral("psql -p %1 -c \"%2\"")
                                .arg(QString::number(_port), escapeForDoubleQuotes(sql));

    // The user list is recognised by psql's header and row count, which must not be translated.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("LC_MESSAGES"), QStringLiteral("C"));

    Process process;
    process.setProcessEnvironment(environment);
    return process
        .simpleStart(QStringLiteral("su"),
                     {QStringLiteral("postgres"), QStringLiteral("-c"), command}, true)
        .output();
}

QStringList PgsqlCluster::usernames() const
{
    const QString output = sqlRequest(userQuery);
    QStringList users;
    if (!Ovt::Internal::parseUserList(output, &users))
        throw AppException(tr("SQL request '%1' not mathed").arg(userQuery));
    return users;
}

void PgsqlCluster::createUser(const QString &name) const
{
    const QString identifier = userIdentifier(name);
    if (!usernames().contains(name))
        sqlRequest(QStringLiteral("create user %1;").arg(identifier));
}

void PgsqlCluster::deleteUser(const QString &name) const
{
    const QString identifier = userIdentifier(name);
    if (usernames().contains(name))
        sqlRequest(QStringLiteral("drop user %1;").arg(identifier));
}
