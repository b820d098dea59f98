#include "system/regexphandler.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

namespace {

const QString fakeCpDir = QStringLiteral(OVT_FIXTURE_DIR "/fakecp");

// "key = value" lines; the handler replaces the keys it was given and records what it saw.
class KeyValueHandler : public RegExpHandler
{
public:
    KeyValueHandler()
        : RegExpHandler(QStringLiteral("^(\\w+)\\s*=\\s*(.*)$"))
    { }

    bool handleRegExp(QByteArray *line) override
    {
        const QString key = regExp().cap(1);
        seen << QStringLiteral("%1%2=%3").arg(line ? QString() : QStringLiteral("null:"), key,
                                              regExp().cap(2).trimmed());
        if (!line || !replacements.contains(key))
            return false;
        *line = replacements.value(key);
        return true;
    }

    bool finalHandleRegExp(QByteArray *data) override
    {
        if (appended.isEmpty())
            return false;
        *data = appended;
        return true;
    }

    QMap<QString, QByteArray> replacements;
    QByteArray appended;
    QStringList seen;
};

QByteArray readAll(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return "<unreadable>";
    return file.readAll();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate)
        && file.write(bytes) == bytes.size();
}

// Sets an environment variable for the lifetime of the object.
struct EnvironmentVariable
{
    EnvironmentVariable(const char *name, const QByteArray &value)
        : name(name)
        , saved(qgetenv(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentVariable() { qputenv(name, saved); }
    const char *name;
    QByteArray saved;
};

// One line per line kind of a real configuration file, so large files mix them all.
QByteArray largeFile(int lines)
{
    const char *kinds[]
        = {"key%1 = %1\n", "# comment %1\n", "\n", "opt%1=x  # trailing\n", "\xff\xfe raw %1\n"};
    QByteArray bytes;
    for (int i = 0; i < lines; ++i)
        bytes += QByteArray(kinds[i % 5]).replace("%1", QByteArray::number(i));
    return bytes;
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
    void rewriteLargeFileWithBackup();
    void rewriteKeepsModeOwnerAndReplacesOlderBackup_data();
    void rewriteKeepsModeOwnerAndReplacesOlderBackup();
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
    _path = _dir->filePath(QStringLiteral("service.conf"));
}

void TestRegExpHandler::read_data()
{
    QTest::addColumn<QByteArray>("contents"); // "<missing>", "<directory>": no readable file
    QTest::addColumn<QString>("result"); // the lines seen, or the error pattern (%P: the path)

    QTest::newRow("matching lines offered with a null line, captures set")
        << QByteArray("a = 1\n  b=two words  \n") << "null:a=1 null:b=two words";
    QTest::newRow("comments and blank lines never offered")
        << QByteArray("# a = 1\n\n   \t\n  #b=2\nc = 3 # d = 4\n") << "null:c=3";
    QTest::newRow("last line without line feed")
        << QByteArray("a = 1\nb = 2") << "null:a=1 null:b=2";
    QTest::newRow("empty file") << QByteArray() << "";
    QTest::newRow("missing file") << QByteArray("<missing>") << "^earlier\n\"%P\" not exists$";
    QTest::newRow("directory cannot be opened")
        << QByteArray("<directory>") << "^earlier\n\"%P\" error 5\n[^\n]+$";
}

void TestRegExpHandler::read()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, result);
    const bool fails = contents.startsWith('<');
    if (contents == "<directory>")
        QVERIFY(QDir().mkdir(_path));
    else if (!fails)
        QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("a"), "changed");
    QString errors = fails ? QStringLiteral("earlier") : QString();
    QCOMPARE(RegExpHandler::readSystemConfigureFile(_path, handler, errors), !fails);
    if (fails) {
        result.replace(QStringLiteral("%P"), QRegularExpression::escape(_path));
        QVERIFY2(QRegularExpression(result).match(errors).hasMatch(), qPrintable(errors));
        return;
    }
    QCOMPARE(errors, QString());
    QCOMPARE(handler.seen.join(' '), result);
    QCOMPARE(readAll(_path), contents);
}

void TestRegExpHandler::rewrite_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("replace");
    QTest::addColumn<QByteArray>("appended");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QString>("seen"); // "*": not compared

    const auto row = [](const char *name, const QByteArray &contents, const char *replace,
                        const QByteArray &expected, const char *seen,
                        const QByteArray &appended = QByteArray()) {
        QTest::newRow(name) << contents << QString(replace).split(' ', Qt::SkipEmptyParts)
                            << appended << expected << seen;
    };
    row("replaced line keeps its comment behind a tab", "  key = value   # note\n", "key",
        "key = new\t# note\n", "key=value");
    row("replaced line without comment ends in a line feed", "key=1\nother = 2\n", "key",
        "key = new\nother = 2\n", "key=1 other=2");
    row("a lone hash is kept as the comment", "key = 1 #\n", "key", "key = new\t#\n", "key=1");
    row("comment-only and blank lines untouched, even if the pattern fits them",
        "# key = a\n\n   \t\n#key=b\n", "key", "# key = a\n\n   \t\n#key=b\n", "");
    row("handler returning false keeps the line byte for byte", "key =  spaced \t # c \r\n", "",
        "key =  spaced \t # c \r\n", "key=spaced");
    row("only the text before the comment is matched", "  # key = 1\nnot a pair # key = 2\n", "key",
        "  # key = 1\nnot a pair # key = 2\n", "");
    row("last line without line feed kept as it is", "a = 1\nb = 2", "a", "a = new\nb = 2",
        "a=1 b=2");
    row("last line without line feed gets one when replaced", "a = 1\nkey = 2", "key",
        "a = 1\nkey = new\n", "a=1 key=2");
    row("bytes that are not UTF-8 pass through", "\xff\xfe = \xfd\n\x80\x81 # \xff\nkey = 1\n",
        "key", "\xff\xfe = \xfd\n\x80\x81 # \xff\nkey = new\n", "*");
    row("NUL bytes in an untouched line pass through", QByteArray("a = \0b\nkey = 1\n", 16), "key",
        QByteArray("a = \0b\nkey = new\n", 18), "*");
    row("empty file", "", "key", "", "");
    row("final handler appends missing lines", "a = 1\n", "", "a = 1\nkey = added\n", "a=1",
        "key = added\n");
}

void TestRegExpHandler::rewrite()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, replace);
    QFETCH(QByteArray, appended);
    QFETCH(QByteArray, expected);
    QFETCH(QString, seen);
    QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    for (const QString &key : qAsConst(replace))
        handler.replacements.insert(key, key.toLatin1() + " = new");
    handler.appended = appended;

    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, false));
    QCOMPARE(errors, QString());
    QCOMPARE(readAll(_path), expected);
    if (seen != "*")
        QCOMPARE(handler.seen.join(' '), seen);
    QVERIFY(!QFile::exists(_path + ".tmp"));
    QVERIFY(!QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::rewriteLargeFileWithBackup()
{
    const QByteArray contents = largeFile(100000);
    QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key50000"), "key50000 = changed");
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, true));
    QCOMPARE(errors, QString());

    QByteArray expected = contents;
    expected.replace("\nkey50000 = 50000\n", "\nkey50000 = changed\n");
    QVERIFY(expected != contents);
    QVERIFY(readAll(_path) == expected);
    QVERIFY(readAll(_path + ".bak") == contents);
    // Every "key" and "opt" line and nothing else reached the handler.
    QCOMPARE(handler.seen.size(), 40000);
}

void TestRegExpHandler::rewriteKeepsModeOwnerAndReplacesOlderBackup_data()
{
    QTest::addColumn<bool>("backup");
    QTest::newRow("no backup asked, older one left alone") << false;
    QTest::newRow("older backup replaced") << true;
}

void TestRegExpHandler::rewriteKeepsModeOwnerAndReplacesOlderBackup()
{
    QFETCH(bool, backup);
    const QByteArray file = QFile::encodeName(_path);
    QVERIFY(writeFile(_path, "key = 1\n"));
    QVERIFY(writeFile(_path + ".bak", "older\n"));
    QCOMPARE(chmod(file.constData(), 0640), 0);
    // As root the owner can be made someone else, which only cp --preserve keeps.
    if (geteuid() == 0)
        QCOMPARE(chown(file.constData(), 65534, 65534), 0);
    struct stat before;
    QCOMPARE(stat(file.constData(), &before), 0);

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key"), "key = 2");
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, backup));
    QCOMPARE(errors, QString());
    QCOMPARE(readAll(_path), QByteArray("key = 2\n"));
    QCOMPARE(readAll(_path + ".bak"), backup ? QByteArray("key = 1\n") : QByteArray("older\n"));

    struct stat after;
    QCOMPARE(stat(file.constData(), &after), 0);
    QCOMPARE(after.st_mode & 07777, 0640u);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
}

enum class Obstacle {
    MissingFile,
    DirectoryInTemporaryPlace, // cp copies into it, opening it for writing fails
    DirectoryInsideTemporaryPlace, // cp cannot put a file over a directory
    DirectoryInBackupPlace,
    FakeCp,
    NoCpOnPath,
};
Q_DECLARE_METATYPE(Obstacle)

void TestRegExpHandler::rewriteFailures_data()
{
    QTest::addColumn<Obstacle>("obstacle");
    QTest::addColumn<QByteArray>("cpMode");
    QTest::addColumn<bool>("backup");
    QTest::addColumn<QString>("earlierErrors");
    QTest::addColumn<QString>("pattern"); // %P is the file's path
    QTest::addColumn<bool>("rewritten"); // also the result

    const auto row = [](const char *name, Obstacle obstacle, const char *cpMode, bool backup,
                        const QString &pattern, const char *earlier = "", bool rewritten = false) {
        QTest::newRow(name) << obstacle << QByteArray(cpMode) << backup << QString(earlier)
                            << pattern << rewritten;
    };
    const QString toTmp = "^Process: \"cp --force --preserve=mode,ownership %P %P\\.tmp\"\\. ";
    const QString back = "Process: \"cp --force --preserve=mode,ownership %P\\.tmp %P\"\\. ";
    const QString noSpace = "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$";

    row("file missing", Obstacle::MissingFile, "", false, "^\"%P\" not exists$");
    row("temporary copy cannot be made", Obstacle::DirectoryInsideTemporaryPlace, "", false,
        toTmp + "Exit code: 1\\.\n\"[^\n]*cp: [^\n]*\n\"$");
    row("cp cannot be started", Obstacle::NoCpOnPath, "", true,
        toTmp + "Error: [^\n]*\\.\n\"Not started\"$");
    row("temporary file cannot be opened", Obstacle::DirectoryInTemporaryPlace, "", false,
        "^\"%P\\.tmp\" error 5\n[^\n]+$");
    row("backup cannot be written", Obstacle::DirectoryInBackupPlace, "", true,
        "^\"%P\" error [0-9]+\n[^\n]+$");
    row("final copy fails", Obstacle::FakeCp, "fail", true, '^' + back + noSpace);
    row("final copy fails half-way, file restored", Obstacle::FakeCp, "partial", false,
        '^' + back + noSpace);
    row("final copy crashes", Obstacle::FakeCp, "crash", false,
        '^' + back + "Error: [^\n]*\\.\n\"Not finished\"$");
    row("temporary file cannot be removed: rewritten, true, one message", Obstacle::FakeCp,
        "pin-tmp", false, "^\"%P\\.tmp\" error [0-9]+\n[^\n]+$", "", true);
    row("earlier errors kept one line feed apart", Obstacle::FakeCp, "fail", false,
        "^earlier problem\n" + back + noSpace, "earlier problem");
}

void TestRegExpHandler::rewriteFailures()
{
    QFETCH(Obstacle, obstacle);
    QFETCH(QByteArray, cpMode);
    QFETCH(bool, backup);
    QFETCH(QString, earlierErrors);
    QFETCH(QString, pattern);
    QFETCH(bool, rewritten);

    // Given a file with every kind of line, and an obstacle that holds for root too
    const QByteArray original("# header\n\nkey = 1   # why\nother=\xff\xfe\nlast = 2");
    const QByteArray changed("# header\n\nkey = 9\t# why\nother=\xff\xfe\nlast = 2");
    QVERIFY(writeFile(_path, original));
    QScopedPointer<EnvironmentVariable> path;
    QScopedPointer<EnvironmentVariable> mode;
    switch (obstacle) {
    case Obstacle::MissingFile:
        QVERIFY(QFile::remove(_path));
        break;
    case Obstacle::DirectoryInTemporaryPlace:
        QVERIFY(QDir().mkdir(_path + ".tmp"));
        break;
    case Obstacle::DirectoryInsideTemporaryPlace:
        QVERIFY(QDir().mkpath(_path + ".tmp/service.conf/inside"));
        break;
    case Obstacle::DirectoryInBackupPlace:
        QVERIFY(QDir().mkpath(_path + ".bak/inside"));
        break;
    case Obstacle::FakeCp:
        path.reset(
            new EnvironmentVariable("PATH", QFile::encodeName(fakeCpDir) + ':' + qgetenv("PATH")));
        mode.reset(new EnvironmentVariable("OVT_FAKE_CP_MODE", cpMode));
        break;
    case Obstacle::NoCpOnPath:
        path.reset(new EnvironmentVariable("PATH", QFile::encodeName(_dir->filePath("nothing"))));
        break;
    }

    // When
    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key"), "key = 9");
    QString errors = earlierErrors;
    const bool ok = RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, backup);
    path.reset();
    mode.reset();

    // Then: one message for the failure, and the file untouched unless the result is true
    QCOMPARE(ok, rewritten);
    pattern.replace(QStringLiteral("%P"), QRegularExpression::escape(_path));
    QVERIFY2(QRegularExpression(pattern).match(errors).hasMatch(), qPrintable(errors));
    if (obstacle != Obstacle::MissingFile)
        QCOMPARE(readAll(_path), rewritten ? changed : original);
    else
        QVERIFY(!QFile::exists(_path));
    if (!backup)
        QVERIFY(!QFile::exists(_path + ".bak"));
}

QTEST_GUILESS_MAIN(TestRegExpHandler)

#include "tst_regexphandler.moc"
