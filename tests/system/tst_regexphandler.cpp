#include "system/regexphandler.h"
#include "systemtest.h"

#include <QDir>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

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
    void rewriteLargeFileKeepsModeOwnerAndReplacesBackup();
    void rewriteFailures_data();
    void rewriteFailures();

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

void TestRegExpHandler::rewriteLargeFileKeepsModeOwnerAndReplacesBackup()
{
    // 100,000 lines mixing every kind of line of a real configuration file.
    const char *kinds[]
        = {"key%1 = %1\n", "# comment %1\n", "\n", "opt%1=x  # trailing\n", "\xff\xfe raw %1\n"};
    QByteArray contents;
    for (int i = 0; i < 100000; ++i)
        contents += QByteArray(kinds[i % 5]).replace("%1", QByteArray::number(i));
    const QByteArray file = QFile::encodeName(_path);
    QVERIFY(writeFile(_path, contents));
    QVERIFY(writeFile(_path + ".bak", "older\n"));
    QCOMPARE(chmod(file.constData(), 0640), 0);
    // As root the owner can be made someone else, which only cp --preserve keeps.
    if (geteuid() == 0)
        QCOMPARE(chown(file.constData(), 65534, 65534), 0);
    struct stat before, after;
    QCOMPARE(stat(file.constData(), &before), 0);

    KeyValueHandler handler;
    handler.replacements.insert("key50000", "key50000 = changed");
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, true));
    QCOMPARE(errors, QString());
    QByteArray expected = contents;
    expected.replace("\nkey50000 = 50000\n", "\nkey50000 = changed\n");
    QVERIFY(expected != contents);
    QVERIFY(readFile(_path) == expected);
    QVERIFY(readFile(_path + ".bak") == contents);
    QCOMPARE(handler.seen.size(), 40000); // the "key" and "opt" lines, nothing else
    QCOMPARE(stat(file.constData(), &after), 0);
    QCOMPARE(after.st_mode & 07777, 0640u);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
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
    const QString toTmp = '^' + cp + "%P %P\\.tmp\"\\. ", back = '^' + cp + "%P\\.tmp %P\"\\. ";
    const QString noSpace = "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$";

    // Earlier errors stay, one line feed apart.
    row("file missing", "missing", false, "^earlier\n\"%P\" not exists$");
    row("temporary copy fails", "dir:.tmp/service.conf/x", false,
        toTmp + "Exit code: 1\\.\n\"[^\n]*cp: [^\n]*\n\"$");
    row("cp cannot start", "nocp", true, toTmp + "Error: [^\n]*\\.\n\"Not started\"$");
    row("temporary file cannot be opened", "dir:.tmp", false, "^\"%P\\.tmp\" error 5\n[^\n]+$");
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

QTEST_GUILESS_MAIN(TestRegExpHandler)

#include "tst_regexphandler.moc"
