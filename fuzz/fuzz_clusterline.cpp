// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// One pg_lsclusters line, as the cluster helper reads it, against a naive tokenizer. Properties
// for any input: the six leading columns are single non-empty words, the log file is non-empty
// and unpadded, and the line written back from the fields parses to the same fields.

#include "system/systemparsers_p.h"

#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

using Ovt::Internal::ClusterFields;

namespace {

QString show(bool ok, const ClusterFields &f)
{
    if (!ok)
        return QStringLiteral("(not a cluster line)");
    return QStringList {f.version,       f.name,   QString::number(f.port), f.status, f.owner,
                        f.dataDirectory, f.logFile}
        .join(QStringLiteral(" | "));
}

bool same(const ClusterFields &a, const ClusterFields &b)
{
    return show(true, a) == show(true, b);
}

[[noreturn]] void fail(const char *what, const QString &line, const QString &expected,
                       const QString &actual)
{
    fprintf(stderr, "parseClusterLine: %s\n  line:     %s\n  expected: %s\n  actual:   %s\n", what,
            line.toUtf8().toPercentEncoding(" |").constData(), qPrintable(expected),
            qPrintable(actual));
    abort();
}

// The reference: cut the line into words at blanks, remembering where each word starts.
bool reference(const QString &line, ClusterFields *fields)
{
    QStringList words;
    QList<int> starts;
    for (int i = 0; i < line.size(); ++i) {
        if (line.at(i).isSpace())
            continue;
        if (i == 0 || line.at(i - 1).isSpace())
            starts << i, words << QString();
        words.last() += line.at(i);
    }
    if (words.size() < 7)
        return false;
    qint64 port = 0;
    for (const QChar c : words.at(2)) {
        if (c < '0' || c > '9' || (port = port * 10 + (c.unicode() - '0')) > INT_MAX)
            return false;
    }
    *fields = {words.at(0),
               words.at(1),
               int(port),
               words.at(3),
               words.at(4),
               words.at(5),
               line.mid(starts.at(6)).trimmed()};
    return true;
}

bool hasBlank(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isSpace(); });
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QString line = QString::fromUtf8(reinterpret_cast<const char *>(data), int(size));
    ClusterFields fields, expected;
    const bool ok = Ovt::Internal::parseClusterLine(line, &fields);
    const bool expectedOk = reference(line, &expected);
    if (ok != expectedOk || (ok && !same(fields, expected)))
        fail("differs from the reference", line, show(expectedOk, expected), show(ok, fields));
    if (!ok)
        return 0;
    for (const QString &word :
         {fields.version, fields.name, fields.status, fields.owner, fields.dataDirectory}) {
        if (word.isEmpty() || hasBlank(word))
            fail("a single-word column is empty or holds a blank", line, QString(), word);
    }
    if (fields.port < 0 || fields.logFile.isEmpty() || fields.logFile != fields.logFile.trimmed())
        fail("bad port or log file", line, QString(), show(ok, fields));
    // Padded columns as the tool prints several clusters, written back from the fields.
    const QString written
        = QStringLiteral("%1  %2\t%3 %4   %5 %6 %7")
              .arg(fields.version, fields.name, QString::number(fields.port), fields.status,
                   fields.owner, fields.dataDirectory, fields.logFile);
    ClusterFields again;
    if (!Ovt::Internal::parseClusterLine(written, &again) || !same(again, fields))
        fail("the line written back parses differently", written, show(true, fields),
             show(true, again));
    return 0;
}
