// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/systemparsers_p.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QJsonValue>
#include <QObject>
#include <QRegularExpression>

#include <cmath>
#include <stdexcept>

namespace {

const QRegularExpression &userListPattern()
{
    // Anchored at the end, so that a user name reading like the row count ends no list early.
    static const QRegularExpression pattern(
        QStringLiteral("\\s*usename\\s*-+\\s*(?P<users>.*?)\\s*\\((?P<count>\\d+)\\s+rows?\\)\\s*")
            + QLatin1String("\\z"),
        QRegularExpression::DotMatchesEverythingOption);
    return pattern;
}

bool isBlank(QChar c)
{
    return c.isSpace();
}

// The next word of @p line from @p pos on, skipping the blanks before it; empty at the end.
QString nextWord(const QString &line, int &pos)
{
    while (pos < line.size() && isBlank(line.at(pos)))
        ++pos;
    const int start = pos;
    while (pos < line.size() && !isBlank(line.at(pos)))
        ++pos;
    return line.mid(start, pos - start);
}

bool isDecimal(const QString &text)
{
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return false;
    }
    return !text.isEmpty();
}

[[noreturn]] void fail(const QString &message)
{
    throw std::runtime_error(message.toUtf8().toStdString());
}

QJsonArray parseArray(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        fail(QObject::tr("Json parse error:\n%1").arg(error.errorString()));
    if (!document.isArray())
        fail(QObject::tr("Expected json array"));
    return document.array();
}

QJsonObject valueAsObject(const QJsonValue &value)
{
    if (!value.isObject())
        fail(QObject::tr("Expected json object"));
    return value.toObject();
}

QJsonValue requiredValue(const QJsonObject &object, const QString &key)
{
    if (!object.contains(key))
        fail(QObject::tr("Json object should contain key '%1'").arg(key));
    return object.value(key);
}

QString requiredId(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = requiredValue(object, key);
    if (!value.isDouble())
        fail(QObject::tr("Expected double"));
    return QString::number(value.toDouble(), 'g', 6);
}

QString requiredString(const QJsonObject &object, const QString &key)
{
    const QJsonValue value = requiredValue(object, key);
    if (!value.isString())
        fail(QObject::tr("Expected string"));
    return value.toString();
}

QString optionalString(const QJsonObject &object, const QString &key)
{
    return object.contains(key) ? requiredString(object, key) : QString();
}

bool optionalBool(const QJsonObject &object, const QString &key)
{
    if (!object.contains(key))
        return false;
    // The tool writes flags as numbers; JSON true/false is not accepted.
    const QJsonValue value = object.value(key);
    if (!value.isDouble())
        fail(QObject::tr("Expected bool (0/1)"));
    return std::round(value.toDouble()) != 0.0;
}

} // namespace

namespace Ovt {
namespace Internal {

bool parseClusterLine(const QString &line, ClusterFields *fields)
{
    int pos = 0;
    QString words[6];
    for (QString &word : words) {
        word = nextWord(line, pos);
        if (word.isEmpty())
            return false;
    }
    // Only the last column may hold blanks of its own.
    const QString logFile = line.mid(pos).trimmed();
    bool portOk = false;
    const int port = words[2].toInt(&portOk, 10);
    if (logFile.isEmpty() || !isDecimal(words[2]) || !portOk)
        return false;
    *fields = {words[0], words[1], port, words[3], words[4], words[5], logFile};
    return true;
}

bool parseUserList(const QString &output, QStringList *users)
{
    const QRegularExpressionMatch match = userListPattern().match(output);
    if (!match.hasMatch())
        return false;
    users->clear();
    const QStringList lines
        = match.captured(QStringLiteral("users")).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        // A line of blanks names nobody: PostgreSQL has no empty user name.
        if (const QString user = line.trimmed(); !user.isEmpty())
            users->append(user);
    }
    return true;
}

QList<SwitchRecord> parseSwitches(const QByteArray &json)
{
    QList<SwitchRecord> records;
    const QJsonArray array = parseArray(json);
    for (const QJsonValue &value : array) {
        const QJsonObject object = valueAsObject(value);
        SwitchRecord r;
        r.id = requiredId(object, QStringLiteral("id"));
        r.name = requiredString(object, QStringLiteral("name"));
        r.longName = requiredString(object, QStringLiteral("longname"));
        r.script = requiredString(object, QStringLiteral("script"));
        r.extra = optionalString(object, QStringLiteral("extra"));
        r.tooltip = optionalString(object, QStringLiteral("tooltip"));
        r.hasSlave = object.contains(QStringLiteral("slave"));
        if (r.hasSlave)
            r.slave = requiredId(object, QStringLiteral("slave"));
        if (optionalString(object, QStringLiteral("group")) == QLatin1String("console"))
            r.group = SwitchGroup::Console;
        r.gray = optionalBool(object, QStringLiteral("gray"));
        r.enableNeedReboot = optionalBool(object, QStringLiteral("enableNeedReboot"));
        r.disableNeedReboot = optionalBool(object, QStringLiteral("disableNeedReboot"));
        records.append(r);
    }
    return records;
}

} // namespace Internal
} // namespace Ovt
