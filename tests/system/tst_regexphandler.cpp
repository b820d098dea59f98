#include "privatemountnamespace.h"
#include "system/regexphandler.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

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

class EnvironmentVariable
{
public:
    EnvironmentVariable(const char *name, const QByteArray &value)
        : _name(name)
        , _saved(qgetenv(name))
        , _wasSet(qEnvironmentVariableIsSet(name))
    {
        qputenv(name, value);
    }
    ~EnvironmentVariable()
    {
        if (_wasSet)
            qputenv(_name, _saved);
        else
            qunsetenv(_name);
    }

private:
    const char *_name;
    QByteArray _saved;
    bool _wasSet;
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

public:
    explicit TestRegExpHandler(const QString &noNamespaceReason)
        : _noNamespaceReason(noNamespaceReason)
    { }

private slots:
    void init();

    void read_data();
    void read();
    void readFailures_data();
    void readFailures();

    void rewrite_data();
    void rewrite();
    void rewriteLargeFile();
    void rewriteKeepsModeAndOwner();
    void backup_data();
    void backup();

    void rewriteFailures_data();
    void rewriteFailures();
    void finalCopyOntoReadOnlyMount();

    void safeCopyReportsCpError();

private:
    QString _noNamespaceReason;
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
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("seen");

    QTest::newRow("matching lines offered with a null line, captures set")
        << QByteArray("a = 1\n  b=two words  \n") << QStringList {"null:a=1", "null:b=two words"};
    QTest::newRow("comments and blank lines never offered")
        << QByteArray("# a = 1\n\n   \t\n  #b=2\nc = 3 # d = 4\n") << QStringList {"null:c=3"};
    QTest::newRow("last line without line feed")
        << QByteArray("a = 1\nb = 2") << QStringList {"null:a=1", "null:b=2"};
    QTest::newRow("empty file") << QByteArray() << QStringList();
}

void TestRegExpHandler::read()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, seen);
    QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("a"), "changed");
    QString errors;
    QVERIFY(RegExpHandler::readSystemConfigureFile(_path, handler, errors));
    QCOMPARE(errors, QString());
    QCOMPARE(handler.seen, seen);
    QCOMPARE(readAll(_path), contents);
}

void TestRegExpHandler::readFailures_data()
{
    QTest::addColumn<bool>("directory");
    QTest::addColumn<QString>("pattern");

    QTest::newRow("missing file") << false << "^\"%P\" not exists$";
    QTest::newRow("directory cannot be opened") << true << "^\"%P\" error 5\n[^\n]+$";
}

void TestRegExpHandler::readFailures()
{
    QFETCH(bool, directory);
    QFETCH(QString, pattern);
    if (directory)
        QVERIFY(QDir().mkdir(_path));

    KeyValueHandler handler;
    QString errors = QStringLiteral("earlier");
    QVERIFY(!RegExpHandler::readSystemConfigureFile(_path, handler, errors));
    pattern.replace(QStringLiteral("%P"), QRegularExpression::escape(_path));
    pattern = QStringLiteral("^earlier\n") + pattern.mid(1);
    QVERIFY2(QRegularExpression(pattern).match(errors).hasMatch(), qPrintable(errors));
}

void TestRegExpHandler::rewrite_data()
{
    QTest::addColumn<QByteArray>("contents");
    QTest::addColumn<QStringList>("replace");
    QTest::addColumn<QByteArray>("appended");
    QTest::addColumn<QByteArray>("expected");
    QTest::addColumn<QStringList>("seen"); // {"*"}: not compared

    // The keys to replace and the lines seen are blank-separated.
    const auto row = [](const char *name, const QByteArray &contents, const char *replace,
                        const QByteArray &expected, const char *seen) {
        QTest::newRow(name) << contents << QString(replace).split(' ', Qt::SkipEmptyParts)
                            << QByteArray() << expected
                            << QString(seen).split(' ', Qt::SkipEmptyParts);
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
    QTest::newRow("final handler appends missing lines")
        << QByteArray("a = 1\n") << QStringList() << QByteArray("key = added\n")
        << QByteArray("a = 1\nkey = added\n") << QStringList {"a=1"};
}

void TestRegExpHandler::rewrite()
{
    QFETCH(QByteArray, contents);
    QFETCH(QStringList, replace);
    QFETCH(QByteArray, appended);
    QFETCH(QByteArray, expected);
    QFETCH(QStringList, seen);
    QVERIFY(writeFile(_path, contents));

    KeyValueHandler handler;
    for (const QString &key : qAsConst(replace))
        handler.replacements.insert(key, key.toLatin1() + " = new");
    handler.appended = appended;

    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, false));
    QCOMPARE(errors, QString());
    QCOMPARE(readAll(_path), expected);
    if (seen != QStringList {"*"})
        QCOMPARE(handler.seen, seen);
    QVERIFY(!QFile::exists(_path + ".tmp"));
    QVERIFY(!QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::rewriteLargeFile()
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

void TestRegExpHandler::rewriteKeepsModeAndOwner()
{
    QVERIFY(writeFile(_path, "key = 1\n"));
    QCOMPARE(chmod(QFile::encodeName(_path).constData(), 0640), 0);
    const bool root = geteuid() == 0;
    // As root the owner can be made someone else, which only cp --preserve keeps.
    if (root)
        QCOMPARE(chown(QFile::encodeName(_path).constData(), 65534, 65534), 0);
    struct stat before;
    QCOMPARE(stat(QFile::encodeName(_path).constData(), &before), 0);

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key"), "key = 2");
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, false));
    QCOMPARE(readAll(_path), QByteArray("key = 2\n"));

    struct stat after;
    QCOMPARE(stat(QFile::encodeName(_path).constData(), &after), 0);
    QCOMPARE(after.st_mode & 07777, 0640u);
    QCOMPARE(after.st_uid, before.st_uid);
    QCOMPARE(after.st_gid, before.st_gid);
}

void TestRegExpHandler::backup_data()
{
    QTest::addColumn<bool>("backup");
    QTest::addColumn<bool>("olderBackup");

    QTest::newRow("no backup asked, none made") << false << false;
    QTest::newRow("no backup asked, older one left alone") << false << true;
    QTest::newRow("backup made") << true << false;
    QTest::newRow("older backup replaced") << true << true;
}

void TestRegExpHandler::backup()
{
    QFETCH(bool, backup);
    QFETCH(bool, olderBackup);
    QVERIFY(writeFile(_path, "key = 1\n"));
    if (olderBackup)
        QVERIFY(writeFile(_path + ".bak", "older\n"));

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key"), "key = 2");
    QString errors;
    QVERIFY(RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, backup));
    QCOMPARE(errors, QString());
    QCOMPARE(readAll(_path), QByteArray("key = 2\n"));
    if (backup)
        QCOMPARE(readAll(_path + ".bak"), QByteArray("key = 1\n"));
    else if (olderBackup)
        QCOMPARE(readAll(_path + ".bak"), QByteArray("older\n"));
    else
        QVERIFY(!QFile::exists(_path + ".bak"));
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
    QTest::addColumn<bool>("result");
    QTest::addColumn<QString>("pattern"); // %P is the file's path
    QTest::addColumn<bool>("rewritten");

    const QString copyToTmp = "^Process: \"cp --force --preserve=mode,ownership %P %P\\.tmp\"\\. ";
    const QString copyBack = "^Process: \"cp --force --preserve=mode,ownership %P\\.tmp %P\"\\. ";

    QTest::newRow("file missing") << Obstacle::MissingFile << QByteArray() << false << QString()
                                  << false << "^\"%P\" not exists$" << false;
    QTest::newRow("temporary copy cannot be made")
        << Obstacle::DirectoryInsideTemporaryPlace << QByteArray() << false << QString() << false
        << copyToTmp + "Exit code: 1\\.\n\"[^\n]*cp: [^\n]*\n\"$" << false;
    QTest::newRow("cp cannot be started")
        << Obstacle::NoCpOnPath << QByteArray() << true << QString() << false
        << copyToTmp + "Error: [^\n]*\\.\n\"Not started\"$" << false;
    QTest::newRow("temporary file cannot be opened")
        << Obstacle::DirectoryInTemporaryPlace << QByteArray() << false << QString() << false
        << "^\"%P\\.tmp\" error 5\n[^\n]+$" << false;
    QTest::newRow("backup cannot be written")
        << Obstacle::DirectoryInBackupPlace << QByteArray() << true << QString() << false
        << "^\"%P\" error [0-9]+\n[^\n]+$" << false;
    QTest::newRow("final copy fails")
        << Obstacle::FakeCp << QByteArray("fail") << true << QString() << false
        << copyBack + "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$" << false;
    QTest::newRow("final copy fails half-way, file restored")
        << Obstacle::FakeCp << QByteArray("partial") << false << QString() << false
        << copyBack + "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$" << false;
    QTest::newRow("final copy crashes")
        << Obstacle::FakeCp << QByteArray("crash") << false << QString() << false
        << copyBack + "Error: [^\n]*\\.\n\"Not finished\"$" << false;
    QTest::newRow("temporary file cannot be removed: rewritten, true, one message")
        << Obstacle::FakeCp << QByteArray("pin-tmp") << false << QString() << true
        << "^\"%P\\.tmp\" error [0-9]+\n[^\n]+$" << true;
    QTest::newRow("earlier errors kept one line feed apart")
        << Obstacle::FakeCp << QByteArray("fail") << false << "earlier problem" << false
        << "^earlier problem\nProcess: \"cp --force --preserve=mode,ownership %P\\.tmp %P\"\\. "
           "Exit code: 1\\.\n\"cp: error writing [^\n]*\n\"$"
        << false;
}

void TestRegExpHandler::rewriteFailures()
{
    QFETCH(Obstacle, obstacle);
    QFETCH(QByteArray, cpMode);
    QFETCH(bool, backup);
    QFETCH(QString, earlierErrors);
    QFETCH(bool, result);
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
    QCOMPARE(ok, result);
    pattern.replace(QStringLiteral("%P"), QRegularExpression::escape(_path));
    QVERIFY2(QRegularExpression(pattern).match(errors).hasMatch(), qPrintable(errors));
    if (obstacle != Obstacle::MissingFile)
        QCOMPARE(readAll(_path), rewritten ? changed : original);
    else
        QVERIFY(!QFile::exists(_path));
    if (!backup)
        QVERIFY(!QFile::exists(_path + ".bak"));
}

void TestRegExpHandler::finalCopyOntoReadOnlyMount()
{
    if (!_noNamespaceReason.isEmpty())
        QSKIP(qPrintable(_noNamespaceReason));

    // Given the file on a read-only mount of its own (the directory stays writable)
    const QByteArray original("key = 1\n");
    QVERIFY(writeFile(_path, original));
    const QByteArray target = QFile::encodeName(_path);
    QCOMPARE(mount(target.constData(), target.constData(), nullptr, MS_BIND, nullptr), 0);
    QCOMPARE(mount(nullptr, target.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr),
             0);

    KeyValueHandler handler;
    handler.replacements.insert(QStringLiteral("key"), "key = 2");
    QString errors;
    const bool ok = RegExpHandler::rewriteSystemConfigureFile(_path, handler, errors, true);
    const QByteArray after = readAll(_path);
    QCOMPARE(umount2(target.constData(), 0), 0);

    QVERIFY(!ok);
    const QString pattern
        = QStringLiteral("^Process: \"cp --force --preserve=mode,ownership "
                         "%1\\.tmp %1\"\\. Exit code: 1\\.\n\"[^\n]*cp: [^\n]*\n\"$")
              .arg(QRegularExpression::escape(_path));
    QVERIFY2(QRegularExpression(pattern).match(errors).hasMatch(), qPrintable(errors));
    QCOMPARE(after, original);
    QCOMPARE(readAll(_path + ".bak"), original);
}

void TestRegExpHandler::safeCopyReportsCpError()
{
    QString errors;
    const QString missing = _dir->filePath(QStringLiteral("missing"));
    const QString to = _dir->filePath(QStringLiteral("to"));
    QVERIFY(!RegExpHandler::safeCopy(missing, to, errors));
    QVERIFY2(errors.startsWith(QStringLiteral("Process: \"cp --force --preserve=mode,ownership "
                                              "%1 %2\". Exit code: 1.\n\"")
                                   .arg(missing, to)),
             qPrintable(errors));

    QVERIFY(writeFile(missing, "data"));
    errors.clear();
    QVERIFY(RegExpHandler::safeCopy(missing, to, errors));
    QCOMPARE(errors, QString());
    QCOMPARE(readAll(to), QByteArray("data"));
}

int main(int argc, char *argv[])
{
    // The namespace must be entered while the process has a single thread.
    const QString noNamespaceReason = enterPrivateMountNamespace();
    QCoreApplication app(argc, argv);
    TestRegExpHandler test(noNamespaceReason);
    return QTest::qExec(&test, argc, argv);
}

#include "tst_regexphandler.moc"
