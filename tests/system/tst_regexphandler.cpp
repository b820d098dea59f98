// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/regexphandler.h"
#include "systemtest.h"

#include <QtTest>

#include <sys/stat.h>
#include <thread>

using namespace OvtTest;

namespace {

// "key = value" lines; replaces the key given and records what it saw.
struct KeyValueHandler : RegExpHandler
{
    KeyValueHandler(const QString &key, const QByteArray &appended = {})
        : RegExpHandler("^(\\w+)\\s*=\\s*(.*)$")
        , key(key)
        , appended(appended)
    { }
    bool handleRegExp(QByteArray *line) override
    {
        seen << (line ? "" : "null:") + regExp().cap(1) + '=' + regExp().cap(2).trimmed();
        // "count" counts up, so that a lost or mixed rewrite shows in the final count.
        const int next = key == "count" ? regExp().cap(2).trimmed().toInt() + 1 : 9;
        if (line && regExp().cap(1) == key)
            *line = key.toLatin1() + " = " + QByteArray::number(next);
        return line && regExp().cap(1) == key;
    }
    bool finalHandleRegExp(QByteArray *data) override
    {
        *data = appended;
        return !appended.isEmpty();
    }
    QString key;
    QByteArray appended;
    QStringList seen;
};

QByteArray unescaped(const QString &text)
{
    return text.toLatin1().replace("\\n", "\n").replace("\\t", "\t");
}

} // namespace

class TestRegExpHandler : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void rewrite_data();
    void rewrite();
    void rewriteFailures_data();
    void rewriteFailures();
    void hostileFiles_data();
    void hostileFiles();
    void concurrentRewritesLoseNothing();

private:
    QScopedPointer<QTemporaryDir> _dir;
    QString _path;
};

void TestRegExpHandler::init()
{
    _dir.reset(new QTemporaryDir);
    _path = _dir->filePath("service.conf");
}

void TestRegExpHandler::rewrite_data()
{
    // The file; the key to replace ("?": only read); the file after ("=": unchanged); the lines
    // seen; what the final handler appends.
    table();
    row("read: null line, captures set",
        "a = 1\\n  b=two words  \\n; ?; =; null:a=1 null:b=two words");
    row("read: comments and blanks skipped",
        "# a = 1\\n\\n   \\t\\n  #b=2\\nc = 3 # d = 4\\n; ?; =; null:c=3");
    row("read: last line without LF", "a = 1\\nb = 2; ?; =; null:a=1 null:b=2");
    // How replaced lines are written back (comments behind a tab, line feeds, other bytes) is
    // compared against a reference by the fuzz target's corpus.
    row("final handler appends", "a = 1\\n;; a = 1\\nkey = added\\n; a=1; key = added\\n");
}

void TestRegExpHandler::rewrite()
{
    const auto [contents, key, expected, seen, appended] = fields<5>();
    QVERIFY(writeFile(_path, unescaped(contents)));

    KeyValueHandler handler(key, unescaped(appended));
    QString errors;
    QVERIFY(key == "?" ? RegExpHandler::readSystemConfigureFile(_path, handler, errors)
                       : RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, false));
    QCOMPARE(errors, QString());
    QCOMPARE(readFile(_path), unescaped(expected == "=" ? contents : expected));
    QCOMPARE(handler.seen.join(' '), seen);
    QVERIFY(!QFile::exists(_path + ".tmp") && !QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::rewriteFailures_data()
{
    // The obstacle ("cp:MODE": the fake cp in that mode); backup; the error pattern; the result.
    table();
    const QString cp = "^Process: \"cp --force --preserve=mode,ownership %P\\.tmp %P\"\\. ";
    const QString noSpace = cp + "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$";

    // Earlier errors stay, one line feed apart.
    row("file missing", "missing; 0; ^earlier\n\"%P\" not exists$");
    row("read: file missing", "read:missing; 0; ^earlier\n\"%P\" not exists$");
    row("read: directory", "read:dir; 0; ^earlier\n\"%P\" error 5\n[^\n]+$");
    row("cp cannot start", "nocp; 1;" + cp + "Error: [^\n]*\\.\n\"Not started\"$");
    row("temporary file cannot be created", "dir:.tmp/x; 0; ^\"%P\\.tmp\" error 5\n[^\n]+$");
    row("backup cannot be written", "dir:.bak/x; 1; ^\"%P\" error [0-9]+\n[^\n]+$");
    row("final copy fails", "cp:fail; 1;" + noSpace);
    row("final copy fails half-way: restored", "cp:partial; 0;" + noSpace);
    row("final copy crashes", "cp:crash; 0;" + cp + "Error: [^\n]*\\.\n\"Not finished\"$");
    row("temporary file cannot be removed",
        "cp:pin-tmp; 0; ^\"%P\\.tmp\" error [0-9]+\n[^\n]+$; rewritten");
}

void TestRegExpHandler::rewriteFailures()
{
    const auto [obstacle, backup, pattern, rewritten] = fields<4>();
    // A file with every kind of line, and an obstacle that holds for root too.
    const QByteArray original("# header\n\nkey = 1   # why\nother=\xff\xfe\nlast = 2");
    const QByteArray changed("# header\n\nkey = 9\t# why\nother=\xff\xfe\nlast = 2");
    const bool read = obstacle.startsWith("read:"), missing = obstacle.endsWith("missing");
    QVERIFY(missing || (obstacle == "read:dir" ? QDir().mkdir(_path) : writeFile(_path, original)));
    QVERIFY(!obstacle.startsWith("dir:") || QDir().mkpath(_path + obstacle.mid(4)));
    QString errors = missing || read ? "earlier" : "";
    KeyValueHandler handler("key");
    bool ok;
    {
        EnvVar mode("OVT_FAKE_CP_MODE", obstacle.mid(3).toLatin1());
        EnvVar path("PATH",
                    obstacle == "nocp"               ? QFile::encodeName(_dir->filePath("none"))
                        : obstacle.startsWith("cp:") ? pathWith(OVT_FIXTURE_DIR "/fakecp")
                                                     : qgetenv("PATH"));
        ok = read
            ? RegExpHandler::readSystemConfigureFile(_path, handler, errors)
            : RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, backup == "1");
    }

    // One message for the failure; the file untouched unless the result is true.
    QCOMPARE(ok, !rewritten.isEmpty());
    const QString escaped = QString(pattern).replace("%P", QRegularExpression::escape(_path));
    QVERIFY2(QRegularExpression(escaped).match(errors).hasMatch(), qPrintable(errors));
    if (!missing && !read)
        QCOMPARE(readFile(_path), ok ? changed : original);
    QVERIFY(QFile::exists(_path) == !missing);
    QVERIFY(backup == "1" || !QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::hostileFiles_data()
{
    // What "nobody" plants beside the file, or what the file is; whether it gets rewritten.
    table();
    row("link planted at .tmp", "tmp; 1");
    row("link planted at .bak", "bak; 1");
    row("target: link to a writable file", "link; 1");
    row("target: link to an immutable file", "link immutable;");
}

void TestRegExpHandler::hostileFiles()
{
    const auto [plant, rewritten] = fields<2>();
    if (geteuid() != 0)
        QSKIP("needs root to act as another user");

    // Given a directory that "nobody" owns (as postgres owns its configuration directory), a
    // file there that it owns too, and a file of root's elsewhere
    const QString victim = _dir->filePath("victim"), conf = _dir->filePath("conf/app.conf");
    const QString real = plant.startsWith("link") ? victim : conf;
    QVERIFY(QProcess::execute("sh",
                              {"-ec",
                               "cd \"$0\" && chmod 755 . && mkdir conf && chown nobody:nogroup "
                               "conf && echo 'key = 1' >victim && chmod 600 victim && case "
                               "$1 in link*) ln -s $PWD/victim conf/app.conf;; *) echo 'key "
                               "= 1' >conf/app.conf && chown nobody:nogroup conf/app.conf && "
                               "chmod 640 conf/app.conf;; esac",
                               _dir->path(), plant})
            == 0);
    if (plant == "tmp" || plant == "bak")
        QVERIFY(QProcess::execute("setpriv",
                                  {"--reuid=nobody", "--regid=nogroup", "--clear-groups", "ln",
                                   "-s", victim, conf + '.' + plant})
                == 0);
    if (plant == "link immutable" && QProcess::execute("chattr", {"+i", victim}) != 0)
        QSKIP("the file system of the temporary directory has no immutable files");

    // When root rewrites the file with a backup
    KeyValueHandler handler("key");
    QString errors;
    const bool ok = RegExpHandler::rewriteSystemConfigureFile(conf, handler, errors, true);
    if (plant == "link immutable")
        QProcess::execute("chattr", {"-i", victim});

    // Then only the real file changed, keeping its owner; nothing planted was followed
    QCOMPARE(ok, rewritten == "1");
    QVERIFY2(ok == errors.isEmpty(), qPrintable(errors));
    QCOMPARE(readFile(real), QByteArray(ok ? "key = 9\n" : "key = 1\n"));
    if (real != victim)
        QCOMPARE(readFile(victim), QByteArray("key = 1\n"));
    struct stat status = {};
    stat(QFile::encodeName(real).constData(), &status);
    // Owner of the victim; whether the file is a link; its owner; the real file's mode.
    QCOMPARE(QString("%1 %2 %3 %4")
                 .arg(QFileInfo(victim).ownerId())
                 .arg(QFileInfo(conf).isSymLink())
                 .arg(QFileInfo(conf).ownerId())
                 .arg(status.st_mode & 0777, 0, 8),
             real == victim ? "0 1 0 600" : "0 0 65534 640");
    // The backup replaced whatever stood at its name, and holds the previous contents.
    QVERIFY(!QFileInfo(conf + ".bak").isSymLink());
    QCOMPARE(readFile(conf + ".bak"), QByteArray("key = 1\n"));
}

void TestRegExpHandler::concurrentRewritesLoseNothing()
{
    for (int trial = 0; trial < 5; ++trial) {
        QVERIFY(writeFile(_path, "# counted\ncount = 0\n"));
        std::atomic<int> failures = 0;
        std::vector<std::thread> workers;
        for (int t = 0; t < 4; ++t)
            workers.emplace_back([&] {
                for (int i = 0; i < 8; ++i) {
                    KeyValueHandler counter("count");
                    QString errors;
                    failures += !RegExpHandler::rewriteSystemConfigureFile(_path, counter, errors,
                                                                           i % 2);
                }
            });
        for (std::thread &worker : workers)
            worker.join();
        QCOMPARE(failures.load(), 0);
        QCOMPARE(readFile(_path), QByteArray("# counted\ncount = 32\n"));
    }
}

QTEST_GUILESS_MAIN(TestRegExpHandler)

#include "tst_regexphandler.moc"
