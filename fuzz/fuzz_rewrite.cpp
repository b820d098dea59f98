// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Configuration-file rewriting against a naive line-by-line reference. Input: one byte choosing
// the pattern and whether a backup is kept, then the handler's script up to the first NUL (one
// byte per matching line: keep it, replace it and say so, or change it and say nothing; a last
// bit for whether lines are appended at the end), then the file itself.

#include "system/regexphandler.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace {

const QStringList Patterns {"^key", "=", "a+b", "^[^=]*=\\s*(\\S+)$", "x|#", "(", ""};

class ScriptedHandler : public RegExpHandler
{
public:
    ScriptedHandler(const QString &pattern, const QByteArray &script)
        : RegExpHandler(pattern)
        , _script(script)
    { }
    bool handleRegExp(QByteArray *line) override
    {
        const uchar step = _script.isEmpty() ? 0 : _script.at(_calls % _script.size());
        ++_calls;
        if (!line)
            return false;
        switch (step % 3) {
        case 1:
            *line = "new " + QByteArray::number(_calls) + " " + regExp().cap(0).toLocal8Bit();
            return true;
        case 2:
            line->prepend("changed:"); // written as it is, line feed and all
            return false;
        }
        return false;
    }
    bool finalHandleRegExp(QByteArray *data) override
    {
        if (_script.isEmpty() || !(_script.at(0) & 0x80))
            return false;
        *data = "appended = 1\n";
        return true;
    }
    int _calls = 0;

private:
    QByteArray _script;
};

[[noreturn]] void fail(const char *what, const QByteArray &expected, const QByteArray &actual)
{
    fprintf(stderr, "rewriteSystemConfigureFile: %s differ\n  expected: %s\n  actual:   %s\n", what,
            expected.toPercentEncoding(" =#\t\n").constData(),
            actual.toPercentEncoding(" =#\t\n").constData());
    abort();
}

QByteArray readAll(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<missing>");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_rewrite";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static QTemporaryDir dir;
    if (size < 1)
        return 0;
    const QByteArray input(reinterpret_cast<const char *>(data), int(size));
    const QString pattern = Patterns.at(uchar(input.at(0)) % Patterns.size());
    const bool backup = uchar(input.at(0)) & 0x80;
    const int end = input.indexOf('\0', 1);
    const QByteArray script = input.mid(1, end < 0 ? -1 : end - 1);
    const QByteArray content = end < 0 ? QByteArray() : input.mid(end + 1);

    // The reference, line by line with the same handler script.
    ScriptedHandler reference(pattern, script);
    QByteArray expected;
    for (int start = 0; start < content.size();) {
        const int feed = content.indexOf('\n', start);
        const int next = feed < 0 ? content.size() : feed + 1;
        QByteArray line = content.mid(start, next - start);
        start = next;
        const QString text = QString::fromLocal8Bit(line);
        const int hash = text.indexOf('#');
        const QString significant = (hash < 0 ? text : text.left(hash)).trimmed();
        if (significant.isEmpty() || reference.regExp().indexIn(significant) == -1) {
            expected += line;
            continue;
        }
        const bool replaced = reference.handleRegExp(&line);
        expected += line;
        if (!replaced)
            continue;
        const QString comment = hash < 0 ? QString() : text.mid(hash).trimmed();
        if (!comment.isEmpty())
            expected += '\t' + comment.toLocal8Bit();
        expected += '\n';
    }
    QByteArray tail;
    if (reference.finalHandleRegExp(&tail))
        expected += tail;

    const QString path = dir.filePath(QStringLiteral("fuzz.conf"));
    QFile::remove(path + ".bak");
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        || file.write(content) != content.size())
        abort();
    file.close();
    ScriptedHandler handler(pattern, script);
    QString errors;
    if (!RegExpHandler::rewriteSystemConfigureFile(path, handler, errors, backup))
        fail("results", "true", errors.toLocal8Bit());
    if (!errors.isEmpty() || handler._calls != reference._calls)
        fail("errors or handler calls", QByteArray::number(reference._calls),
             QByteArray::number(handler._calls) + ' ' + errors.toLocal8Bit());
    if (readAll(path) != expected)
        fail("files", expected, readAll(path));
    if (backup && readAll(path + ".bak") != content)
        fail("backups", content, readAll(path + ".bak"));
    if (!backup && QFile::exists(path + ".bak"))
        fail("backups", "none", "one");
    if (QFile::exists(path + ".tmp"))
        fail("temporary files", "none", "one");
    return 0;
}
