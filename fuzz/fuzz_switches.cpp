// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// The security monitor's switch list, as the helper reads it, against a naive key-table reference
// of the documented record. Properties for any input: the records or exactly one documented
// message; and grouped the helper's way, each group's switches come in reverse list order.

#include "system/systemparsers_p.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMultiMap>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>

using Ovt::Internal::SwitchRecord;

namespace {

enum Kind { Id, Text, OptionalText, OptionalId, OptionalFlag };
const QList<QPair<QString, Kind>> Keys {
    {"id", Id},
    {"name", Text},
    {"longname", Text},
    {"script", Text},
    {"extra", OptionalText},
    {"tooltip", OptionalText},
    {"slave", OptionalId},
    {"group", OptionalText},
    {"gray", OptionalFlag},
    {"enableNeedReboot", OptionalFlag},
    {"disableNeedReboot", OptionalFlag},
};

QString show(const SwitchRecord &r)
{
    return QStringList {r.id,
                        r.name,
                        r.longName,
                        r.script,
                        r.extra,
                        r.tooltip,
                        r.hasSlave ? "slave " + r.slave : "no slave",
                        r.group == SwitchGroup::Console ? "console" : "system",
                        QString::number(r.gray),
                        QString::number(r.enableNeedReboot),
                        QString::number(r.disableNeedReboot)}
        .join(QStringLiteral(" | "));
}

// The reference: every record as text, or the one message the first fault must give.
QStringList reference(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError)
        return {"Json parse error:\n" + error.errorString()};
    if (!document.isArray())
        return {"Expected json array"};
    QStringList records;
    for (const QJsonValue element : document.array()) {
        if (!element.isObject())
            return {"Expected json object"};
        const QJsonObject object = element.toObject();
        QStringList fields;
        for (const auto &[key, kind] : Keys) {
            const QJsonValue value = object.value(key);
            if (!object.contains(key) && (kind == Id || kind == Text))
                return {"Json object should contain key '" + key + "'"};
            if (!object.contains(key)) {
                fields << (kind == OptionalId ? "no slave" : kind == OptionalFlag ? "0" : "");
            } else if (kind == Text || kind == OptionalText) {
                if (!value.isString())
                    return {"Expected string"};
                fields << value.toString();
            } else if (!value.isDouble()) {
                return {kind == OptionalFlag ? "Expected bool (0/1)" : "Expected double"};
            } else if (kind == OptionalFlag) {
                fields << (std::fabs(value.toDouble()) >= 0.5 ? "1" : "0");
            } else {
                fields << (kind == OptionalId ? "slave " : "")
                        + QString::number(value.toDouble(), 'g', 6);
            }
        }
        fields[7] = fields[7] == "console" ? "console" : "system";
        records << fields.join(QStringLiteral(" | "));
    }
    return records;
}

[[noreturn]] void fail(const char *what, const QByteArray &json, const QStringList &expected,
                       const QStringList &actual)
{
    fprintf(stderr, "parseSwitches: %s\n  input:    %s\n  expected: %s\n  actual:   %s\n", what,
            json.toPercentEncoding(" {}[]\":,").constData(), qPrintable(expected.join("; ")),
            qPrintable(actual.join("; ")));
    abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray json(reinterpret_cast<const char *>(data), int(size));
    const QStringList expected = reference(json);
    QList<SwitchRecord> records;
    QStringList actual;
    try {
        records = Ovt::Internal::parseSwitches(json);
        for (const SwitchRecord &r : qAsConst(records))
            actual << show(r);
    } catch (const std::runtime_error &error) {
        actual << QString::fromUtf8(error.what());
        if (expected.size() != 1 || actual != expected)
            fail("the message differs", json, expected, actual);
        return 0;
    }
    if (actual != expected)
        fail("the records differ", json, expected, actual);
    // Grouped as the helper does it: later insertions of one group come first.
    QMultiMap<SwitchGroup, QString> grouped;
    for (const SwitchRecord &r : qAsConst(records))
        grouped.insert(r.group, r.id);
    for (const SwitchGroup group : {SwitchGroup::Console, SwitchGroup::System}) {
        QStringList ids;
        for (const SwitchRecord &r : qAsConst(records))
            if (r.group == group)
                ids.prepend(r.id);
        if (grouped.values(group) != ids)
            fail("a group's order differs", json, ids, grouped.values(group));
    }
    return 0;
}
