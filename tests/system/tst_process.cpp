#include "system/appexception.h"
#include "system/package.h"
#include "system/process.h"

#include <QDir>
#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString childScript = QStringLiteral(OVT_FIXTURE_DIR "/process/child.sh");
const QString fakeDpkgDir = QStringLiteral(OVT_FIXTURE_DIR "/fakedpkg");

// Puts @p dir in front of PATH for the lifetime of the object.
class PathPrefix
{
public:
    explicit PathPrefix(const QString &dir)
        : _saved(qgetenv("PATH"))
    {
        qputenv("PATH", dir.toLocal8Bit() + ':' + _saved);
    }
    ~PathPrefix() { qputenv("PATH", _saved); }

private:
    QByteArray _saved;
};

} // namespace

class TestProcess : public QObject
{
    Q_OBJECT

private slots:
    void appException();
    void appExceptionTravelsAsQException();

    void successReturnsOutput_data();
    void successReturnsOutput();
    void failureThrows_data();
    void failureThrows();
    void nonZeroExitWithoutCheck();

    void isInstalledRealDpkg_data();
    void isInstalledRealDpkg();
    void isInstalledStatusLines_data();
    void isInstalledStatusLines();
    void isInstalledWhenDpkgQueryMissing();
};

void TestProcess::appException()
{
    const AppException e(QStringLiteral("Paquet « introuvable »"));
    QCOMPARE(e.getText(), QStringLiteral("Paquet « introuvable »"));
    QCOMPARE(QByteArray(e.what()), QStringLiteral("Paquet « introuvable »").toLocal8Bit());

    // what() must stay valid in copies: exceptions are copied when thrown and caught by value.
    const AppException copy = e;
    QCOMPARE(QByteArray(copy.what()), QByteArray(e.what()));
}

void TestProcess::appExceptionTravelsAsQException()
{
    // raise() is QException's own, so the dynamic type is lost on purpose when rethrown
    // through a future; the callers rely on catching it before that.
    const AppException e(QStringLiteral("text"));
    try {
        e.raise();
        QFAIL("raise() did not throw");
    } catch (const AppException &) {
        QFAIL("AppException must arrive as a plain QException");
    } catch (const QException &) { }
}

void TestProcess::successReturnsOutput_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("output");

    QTest::newRow("standard output returned")
        << QStringList {"print", "hello\nworld"} << "hello\nworld";
    QTest::newRow("standard error ignored on exit 0")
        << QStringList {"print", "out", "warning: something"} << "out";
    QTest::newRow("no output gives null string") << QStringList {"exit", "0"} << QString();
    QTest::newRow("arguments passed one by one, blanks kept")
        << QStringList {"args", "a b", "", "c"} << "[args][a b][][c]";
}

void TestProcess::successReturnsOutput()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, output);

    Process process;
    const QString result = process.simpleStart(childScript, arguments, true).output();
    QCOMPARE(result, output);
    QCOMPARE(result.isNull(), output.isNull());
}

void TestProcess::failureThrows_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    QTest::newRow("exit code with standard error appended untrimmed")
        << childScript << QStringList {"exit", "3", "disk full\n"}
        << QStringLiteral("Process '%1 exit 3 disk full\n' execute with error code '3'. disk "
                          "full\n")
               .arg(childScript);
    QTest::newRow("exit code without standard error has no suffix")
        << childScript << QStringList {"exit", "1"}
        << QStringLiteral("Process '%1 exit 1' execute with error code '1'").arg(childScript);
    QTest::newRow("crash reported as not finished")
        << childScript << QStringList {"crash"}
        << QStringLiteral("Process '%1 crash' not finished").arg(childScript);
    QTest::newRow("missing program without arguments has no trailing blank")
        << QStringLiteral("/nonexistent/ovt-program") << QStringList()
        << QStringLiteral("Process '/nonexistent/ovt-program' not finished");
    QTest::newRow("percent signs in the command are kept")
        << childScript << QStringList {"exit", "2", "%1 %2"}
        << QStringLiteral("Process '%1 exit 2 %1 %2' execute with error code '2'. %1 %2")
               .replace(QStringLiteral("Process '%1"), QStringLiteral("Process '") + childScript);
}

void TestProcess::failureThrows()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    Process process;
    try {
        process.simpleStart(program, arguments, true);
        QFAIL("no exception");
    } catch (const AppException &e) {
        QCOMPARE(e.getText(), message);
    }
}

void TestProcess::nonZeroExitWithoutCheck()
{
    Process process;
    const QString output
        = process.simpleStart(childScript, {"exit", "5", "ignored"}, false).output();
    QVERIFY(output.isNull());
    QCOMPARE(process.exitCode(), 5);
}

void TestProcess::isInstalledRealDpkg_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("installed");

    // dpkg itself is installed wherever dpkg-query runs.
    QTest::newRow("installed package") << "dpkg" << true;
    QTest::newRow("unknown package") << "ovt-no-such-package-xyz" << false;
    QTest::newRow("pattern matching an installed package") << "dpk[g]" << true;
}

void TestProcess::isInstalledRealDpkg()
{
    QFETCH(QString, name);
    QFETCH(bool, installed);
    if (QStandardPaths::findExecutable(QStringLiteral("dpkg-query")).isEmpty())
        QSKIP("dpkg-query is not installed on this machine");
    QCOMPARE(Package(name).isInstalled(), installed);
}

void TestProcess::isInstalledStatusLines_data()
{
    QTest::addColumn<QByteArray>("status");
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<bool>("installed");

    QTest::newRow("installed") << QByteArray("install ok installed\\n") << 0 << true;
    QTest::newRow("config files only") << QByteArray("deinstall ok config-files\\n") << 0 << false;
    QTest::newRow("half-installed counts by prefix")
        << QByteArray("install ok half-installed\\n") << 0 << true;
    QTest::newRow("second of several packages installed")
        << QByteArray("unknown ok not-installed\\n\\ninstall ok installed\\n") << 0 << true;
    QTest::newRow("prefix must start the line")
        << QByteArray(" install ok installed\\n") << 0 << false;
    QTest::newRow("unknown package: non-zero exit, no output") << QByteArray() << 1 << false;
}

void TestProcess::isInstalledStatusLines()
{
    QFETCH(QByteArray, status);
    QFETCH(int, exitCode);
    QFETCH(bool, installed);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString argsFile = dir.filePath(QStringLiteral("args"));
    qputenv("OVT_FAKE_DPKG_ARGS", QFile::encodeName(argsFile));
    qputenv("OVT_FAKE_DPKG_STATUS", status);
    qputenv("OVT_FAKE_DPKG_EXIT", QByteArray::number(exitCode));
    PathPrefix path(fakeDpkgDir);

    QCOMPARE(Package(QStringLiteral("some-package")).isInstalled(), installed);

    QFile args(argsFile);
    QVERIFY(args.open(QIODevice::ReadOnly));
    QCOMPARE(args.readAll(), QByteArray("-W\n-f=${Status}\n\nsome-package\n"));
}

void TestProcess::isInstalledWhenDpkgQueryMissing()
{
    QTemporaryDir emptyDir;
    QVERIFY(emptyDir.isValid());
    const QByteArray saved = qgetenv("PATH");
    qputenv("PATH", QFile::encodeName(emptyDir.path()));
    try {
        Package(QStringLiteral("dpkg")).isInstalled();
        qputenv("PATH", saved);
        QFAIL("no exception");
    } catch (const AppException &e) {
        qputenv("PATH", saved);
        QCOMPARE(e.getText(),
                 QStringLiteral("Process 'dpkg-query -W -f=${Status}\n dpkg' not finished"));
    }
}

QTEST_GUILESS_MAIN(TestProcess)

#include "tst_process.moc"
