#include "system/pgsqlcluster.h"

#include "system/appexception.h"
#include "system/process.h"

#include <QProcessEnvironment>
#include <QRegularExpression>

namespace {

const QString userQuery = QStringLiteral("SELECT u.usename FROM pg_catalog.pg_user u;");

const QRegularExpression &clusterLinePattern()
{
    static const QRegularExpression pattern(QStringLiteral(
        "^(?P<version>.+)\\s+(?P<name>.+)\\s+(?P<port>\\d+)\\s+(?P<status>.+)\\s+(?P<owner>.+)"
        "\\s+(?P<dataDirectory>.+)\\s+(?P<logFile>.+)$"));
    return pattern;
}

const QRegularExpression &userListPattern()
{
    static const QRegularExpression pattern(
        QStringLiteral("\\s*usename\\s*-+\\s*(?P<users>.*?)\\s*\\((?P<count>\\d+)\\s+rows?\\)\\s*"),
        QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

} // namespace

PgsqlCluster::PgsqlCluster()
    : QObject(nullptr)
{ }

PgsqlCluster::~PgsqlCluster() = default;

PgsqlCluster *PgsqlCluster::fromString(const QString &line)
{
    const QRegularExpressionMatch match = clusterLinePattern().match(line);
    if (!match.hasMatch())
        throw AppException(tr("Cluster info not valid '%1'").arg(line));

    auto *cluster = new PgsqlCluster;
    cluster->_version = match.captured(QStringLiteral("version"));
    cluster->_name = match.captured(QStringLiteral("name"));
    cluster->_port = match.captured(QStringLiteral("port")).toInt(nullptr, 10);
    cluster->_status = match.captured(QStringLiteral("status"));
    cluster->_owner = match.captured(QStringLiteral("owner"));
    cluster->_dataDirectory = match.captured(QStringLiteral("dataDirectory"));
    cluster->_logFile = match.captured(QStringLiteral("logFile"));
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
    const QString command = QStringLiteral("psql -p %1 -c \"%2\"").arg(QString::number(_port), sql);

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
    const QRegularExpressionMatch match = userListPattern().match(output);
    if (!match.hasMatch())
        throw AppException(tr("SQL request '%1' not mathed").arg(userQuery));

    QStringList users;
    const QStringList lines
        = match.captured(QStringLiteral("users")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &user : lines)
        users.append(user.trimmed());
    return users;
}

void PgsqlCluster::createUser(const QString &name) const
{
    if (!usernames().contains(name))
        sqlRequest(QStringLiteral("create user %1;").arg(name));
}

void PgsqlCluster::deleteUser(const QString &name) const
{
    if (usernames().contains(name))
        sqlRequest(QStringLiteral("drop user %1;").arg(name));
}
