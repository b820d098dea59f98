// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// psql's answer to the user query, as the cluster helper reads it. Properties for any input: no
// user name is empty, padded or spans lines, and the table psql would print for the names read
// parses back to the same names, as does the table printed for names taken from the input.

#include "system/systemparsers_p.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

[[noreturn]] void fail(const char *what, const QString &output, const QStringList &users)
{
    fprintf(stderr, "parseUserList: %s\n  output: %s\n  users:  %s\n", what,
            output.toUtf8().toPercentEncoding(" |").constData(),
            users.join(QStringLiteral("|")).toUtf8().toPercentEncoding(" |").constData());
    abort();
}

QString table(const QStringList &users)
{
    QString text = QStringLiteral(" usename  \n----------\n");
    for (const QString &user : users)
        text += QLatin1Char(' ') + user + QStringLiteral("\n");
    return text
        + QStringLiteral("(%1 %2)\n\n").arg(users.size()).arg(users.size() == 1 ? "row" : "rows");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString output = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    // The input as names too: whatever a name holds, its table reads back to it.
    QStringList names;
    for (const QString &name : output.split(QLatin1Char('\n')))
        if (!name.isEmpty() && name == name.trimmed())
            names << name;
    QStringList read;
    if (!Ovt::Internal::parseUserList(table(names), &read) || read != names)
        fail("the table printed for these names reads differently", table(names), read);
    QStringList users {QStringLiteral("kept when the output is no table")};
    const QStringList before = users;
    if (!Ovt::Internal::parseUserList(output, &users)) {
        if (users != before)
            fail("a refused output changed the list", output, users);
        return 0;
    }
    for (const QString &user : qAsConst(users)) {
        if (user.isEmpty() || user != user.trimmed() || user.contains(QLatin1Char('\n')))
            fail("an empty, padded or multi-line name", output, users);
    }
    QStringList again;
    if (!Ovt::Internal::parseUserList(table(users), &again) || again != users)
        fail("the table printed for the names reads differently", table(users), again);
    return 0;
}
