#include "system/regexphandler.h"
#include "systemtest.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

// "key = value" lines; replaces the keys given and records what it saw.
class KeyValueHandler : public RegExpHandler
{
public:
    KeyValueHandler()
        : RegExpHandler(QStringLiteral("^(\\w+)\\s*=\\s*(.*)$"))
    { }

    bool handleRegExp(QByteArray *line) override
    {
        const QString key = regExp().cap(1);
        seen << (line ? "" : "null:") + key + '=' + regExp().cap(2).trimmed();
        if (!line || !replacements.contains(key))
            return false;
        *line = replacements.value(key);
        return true;
    }

    bool finalHandleRegExp(QByteArray *data) override
    {
        *data = appended;
        return !appended.isEmpty();
    }

    QMap<QString, QByteArray> replacements;
    QByteArray appended;
    QStringList seen;
};

// Checks @p errors against @p pattern, in which %P stands for @p path.
bool matches(QString pattern, const QString &path, const QString &errors)
{
    pattern.replace("%P", QRegularExpression::escape(path));
    return QRegularExpression(pattern).match(errors).hasMatch();
}

} // namespace

class TestRegExpHandler : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void read_data();
    void read();
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
    QVERIFY(_dir->isValid());
    _path = _dir->filePath("service.conf");
}

void TestRegExpHandler::read_data()
{
    QTest::addColumn<QByteArray>("contents"); // "<missing>", "<directory>": no readable file
    QTest::addColumn<QString>("result"); // the lines seen, or the error pattern

    QTest::newRow("null line, captures set")
        << QByteArray("a = 1\n  b=two words  \n") << "null:a=1 null:b=two words";
    QTest::newRow("comments and blanks skipped")
        << QByteArray("# a = 1\n\n   \t\n  #b=2\nc = 3 # d = 4\n") << "null:c=3";
    QTest::newRow("last line without LF") << QByteArray("a = 1\nb = 2") << "null:a=1 null:b=2";
    QTest::newRow("missing") << QByteArray("<missing>") << "^earlier\n\"%P\" not exists$";
    QTest::newRow("directory") << QByteArray("<directory>") << "^earlier\n\"%P\" error 5\n[^\n]+$";
}

void TestRegExpHandler::read()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, result);
    const bool fails = contents.startsWith('<');
    QVERIFY(contents == "<directory>" ? QDir().mkdir(_path) : fails || writeFile(_path, contents));

    KeyValueHandler handler;
    handler.replacements.insert("a", "changed");
    QString errors = fails ? "earlier" : "";
    QCOMPARE(RegExpHandler::readSystemConfigureFile(_path, handler, errors), !fails);
    QVERIFY2(fails ? matches(result, _path, errors) : errors.isEmpty(), qPrintable(errors));
    if (fails)
        return;
    QCOMPARE(handler.seen.join(' '), result);
    QCOMPARE(readFile(_path), contents); // reading never changes the file
}

void TestRegExpHandler::rewrite_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QString>("replace"); // keys to replace with "KEY = new"
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QString>("seen"); // "*": not compared
    QTest::addColumn<QByteArray>("appended");

    const auto row = [](const char *name, const QByteArray &contents, const char *replace,
                        const QByteArray &expected, const char *seen, const char *appended = "") {
        QTest::newRow(name) << contents << QString(replace) << expected << seen
                            << QByteArray(appended);
    };
    row("comment kept behind a tab", "  key = value   # note\n", "key", "key = new\t# note\n",
        "key=value");
    row("no comment: LF added", "key=1\nother = 2\n", "key", "key = new\nother = 2\n",
        "key=1 other=2");
    // Only the text before "#" is matched, so none of these lines reaches the handler.
    row("comment-only, blank, text before #", "# key = a\n\n   \t\nnot a pair # key = 2\n", "key",
        "# key = a\n\n   \t\nnot a pair # key = 2\n", "");
    row("false keeps the bytes", "key =  spaced \t # c \r\n", "", "key =  spaced \t # c \r\n",
        "key=spaced");
    row("last line without LF kept", "a = 1\nb = 2", "a", "a = new\nb = 2", "a=1 b=2");
    row("last line without LF replaced", "a = 1\nkey = 2", "key", "a = 1\nkey = new\n",
        "a=1 key=2");
    row("not UTF-8", "\xff\xfe = \xfd\n\x80\x81 # \xff\nkey = 1\n", "key",
        "\xff\xfe = \xfd\n\x80\x81 # \xff\nkey = new\n", "*");
    row("final handler appends", "a = 1\n", "", "a = 1\nkey = added\n", "a=1", "key = added\n");
}

void TestRegExpHandler::rewrite()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, replace);
    QFETCH(QByteArray, expected);
    QFETCH(QString, seen);
    QFETCH(QByteArray, appended);
    QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    if (!replace.isEmpty())
        handler.replacements.insert(replace, replace.toLatin1() + " = new");
    handler.appended = appended;
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, false));
    QCOMPARE(errors, QString());
    QCOMPARE(readFile(_path), expected);
    if (seen != "*")
        QCOMPARE(handler.seen.join(' '), seen);
    QVERIFY(!QFile::exists(_path + ".tmp"));
    QVERIFY(!QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::rewriteFailures_data()
{
    QTest::addColumn<QString>("obstacle"); // "cp:MODE": the fake cp in that mode
    QTest::addColumn<bool>("backup");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<bool>("rewritten"); // also the result

    const auto row = [](const char *name, const char *obstacle, bool backup, const QString &pattern,
                        bool rewritten = false) {
        QTest::newRow(name) << obstacle << backup << pattern << rewritten;
    };
    const QString cp = "Process: \"cp --force --preserve=mode,ownership ";
    const QString back = '^' + cp + "%P\\.tmp %P\"\\. ";
    const QString noSpace = "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$";

    // Earlier errors stay, one line feed apart.
    row("file missing", "missing", false, "^earlier\n\"%P\" not exists$");
    row("cp cannot start", "nocp", true, back + "Error: [^\n]*\\.\n\"Not started\"$");
    row("temporary file cannot be created", "dir:.tmp/x", false, "^\"%P\\.tmp\" error 5\n[^\n]+$");
    row("backup cannot be written", "dir:.bak/x", true, "^\"%P\" error [0-9]+\n[^\n]+$");
    row("final copy fails", "cp:fail", true, back + noSpace);
    row("final copy fails half-way: restored", "cp:partial", false, back + noSpace);
    row("final copy crashes", "cp:crash", false, back + "Error: [^\n]*\\.\n\"Not finished\"$");
    row("temporary file cannot be removed", "cp:pin-tmp", false,
        "^\"%P\\.tmp\" error [0-9]+\n[^\n]+$", true);
}

void TestRegExpHandler::rewriteFailures()
{
    QFETCH(QString, obstacle);
    QFETCH(bool, backup);
    QFETCH(QString, pattern);
    QFETCH(bool, rewritten);

    // A file with every kind of line, and an obstacle that holds for root too.
    const QByteArray original("# header\n\nkey = 1   # why\nother=\xff\xfe\nlast = 2");
    const QByteArray changed("# header\n\nkey = 9\t# why\nother=\xff\xfe\nlast = 2");
    QVERIFY(obstacle == "missing" || writeFile(_path, original));
    if (obstacle.startsWith("dir:"))
        QVERIFY(QDir().mkpath(_path + obstacle.mid(4)));
    const bool fakeCp = obstacle.startsWith("cp:");
    QString errors = obstacle == "missing" ? "earlier" : "";
    KeyValueHandler handler;
    handler.replacements.insert("key", "key = 9");
    bool ok;
    {
        EnvVar mode("OVT_FAKE_CP_MODE", obstacle.mid(3).toLatin1());
        EnvVar path("PATH",
                    obstacle == "nocp" ? QFile::encodeName(_dir->filePath("none"))
                        : fakeCp       ? pathWith(OVT_FIXTURE_DIR "/fakecp")
                                       : qgetenv("PATH"));
        ok = RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, backup);
    }

    // One message for the failure; the file untouched unless the result is true.
    QCOMPARE(ok, rewritten);
    QVERIFY2(matches(pattern, _path, errors), qPrintable(errors));
    if (obstacle == "missing")
        QVERIFY(!QFile::exists(_path));
    else
        QCOMPARE(readFile(_path), rewritten ? changed : original);
    QVERIFY(backup || !QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::hostileFiles_data()
{
    QTest::addColumn<QString>("plant"); // what "nobody" puts beside the file, or the target kind
    QTest::addColumn<bool>("rewritten");

    QTest::newRow("link planted at .tmp") << "tmp" << true;
    QTest::newRow("link planted at .bak") << "bak" << true;
    QTest::newRow("target: link to a writable file") << "link" << true;
    QTest::newRow("target: link to an immutable file") << "link immutable" << false;
}

void TestRegExpHandler::hostileFiles()
{
    QFETCH(QString, plant);
    QFETCH(bool, rewritten);
    if (geteuid() != 0)
        QSKIP("needs root to act as another user");

    // Given a directory that "nobody" owns (as postgres owns its configuration directory), a
    // file there that it owns too, and a file of root's elsewhere
    const QString dir = _dir->filePath("conf"), victim = _dir->filePath("victim");
    const QString conf = dir + "/app.conf", real = plant.startsWith("link") ? victim : conf;
    QVERIFY(QFile::setPermissions(_dir->path(),
                                  QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
                                      | QFile::ReadOther | QFile::ExeOther));
    QVERIFY(QDir().mkdir(dir) && chown(QFile::encodeName(dir), 65534, 65534) == 0);
    QVERIFY(writeFile(victim, "key = 1\n") && chmod(QFile::encodeName(victim), 0600) == 0);
    if (real == conf)
        QVERIFY(writeFile(conf, "key = 1\n") && chown(QFile::encodeName(conf), 65534, 65534) == 0
                && chmod(QFile::encodeName(conf), 0640) == 0);
    else
        QVERIFY(QFile::link(victim, conf));
    if (plant == "tmp" || plant == "bak")
        QVERIFY(asNobody({"ln", "-s", victim, conf + '.' + plant}));
    if (plant == "link immutable" && QProcess::execute("chattr", {"+i", victim}) != 0)
        QSKIP("the file system of the temporary directory has no immutable files");

    // When root rewrites the file with a backup
    KeyValueHandler handler;
    handler.replacements.insert("key", "key = 9");
    QString errors;
    const bool ok = RegExpHandler::rewriteSystemConfigureFile(conf, handler, errors, true);
    if (plant == "link immutable")
        QProcess::execute("chattr", {"-i", victim});

    // Then only the real file changed, keeping its owner; nothing planted was followed
    QCOMPARE(ok, rewritten);
    QVERIFY2(ok == errors.isEmpty(), qPrintable(errors));
    QCOMPARE(readFile(real), QByteArray(ok ? "key = 9\n" : "key = 1\n"));
    if (real != victim)
        QCOMPARE(readFile(victim), QByteArray("key = 1\n"));
    QCOMPARE(QFileInfo(victim).ownerId(), 0u);
    QCOMPARE(QFileInfo(conf).isSymLink(), real == victim);
    QCOMPARE(QFileInfo(conf).ownerId(), real == victim ? 0u : 65534u);
    struct stat status;
    QCOMPARE(stat(QFile::encodeName(real).constData(), &status), 0);
    QCOMPARE(status.st_mode & 0777, real == victim ? 0600u : 0640u);
    // The backup replaced whatever stood at its name, and holds the previous contents.
    QVERIFY(!QFileInfo(conf + ".bak").isSymLink());
    QCOMPARE(readFile(conf + ".bak"), QByteArray("key = 1\n"));
}

void TestRegExpHandler::concurrentRewritesLoseNothing()
{
    // A handler that counts up, so that a lost or mixed rewrite shows in the final count.
    struct Counter : RegExpHandler
    {
        Counter()
            : RegExpHandler("^count = (\\d+)$")
        { }
        bool handleRegExp(QByteArray *line) override
        {
            if (line)
                *line = "count = " + QByteArray::number(regExp().cap(1).toInt() + 1);
            return line;
        }
    };
    constexpr int threads = 4, rewrites = 8;
    for (int trial = 0; trial < 5; ++trial) {
        QVERIFY(writeFile(_path, "# counted\ncount = 0\n"));
        QAtomicInt failures;
        QList<QThread *> workers;
        for (int t = 0; t < threads; ++t)
            workers << QThread::create([this, &failures] {
                for (int i = 0; i < rewrites; ++i) {
                    Counter counter;
                    QString errors;
                    if (!RegExpHandler::rewriteSystemConfigureFile(_path, counter, errors, i % 2))
                        failures.fetchAndAddOrdered(1);
                }
            });
        for (QThread *worker : qAsConst(workers))
            worker->start();
        for (QThread *worker : qAsConst(workers))
            QVERIFY(worker->wait());
        qDeleteAll(workers);
        QCOMPARE(failures.loadAcquire(), 0);
        QCOMPARE(readFile(_path),
                 "# counted\ncount = " + QByteArray::number(threads * rewrites) + '\n');
    }
}

QTEST_GUILESS_MAIN(TestRegExpHandler)

#include "tst_regexphandler.moc"
