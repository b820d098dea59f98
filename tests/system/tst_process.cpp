#include "system/appexception.h"
#include "system/package.h"
#include "system/process.h"

#include <QTemporaryDir>
#include <QtTest>

namespace {

const QString childScript = QStringLiteral(OVT_FIXTURE_DIR "/process/child.sh");
const QString fakeDpkgDir = QStringLiteral(OVT_FIXTURE_DIR "/fakedpkg");

// Replaces PATH for the lifetime of the object.
class PathOverride
{
public:
    explicit PathOverride(const QByteArray &path)
        : _saved(qgetenv("PATH"))
    {
        qputenv("PATH", path);
    }
    ~PathOverride() { qputenv("PATH", _saved); }

private:
    QByteArray _saved;
};

} // namespace

class TestProcess : public QObject
{
    Q_OBJECT

private slots:
    void appException();
    void simpleStart_data();
    void simpleStart();
    void isInstalled_data();
    void isInstalled();
};

void TestProcess::appException()
{
    const AppException e(QStringLiteral("Paquet « introuvable »"));
    QCOMPARE(e.getText(), QStringLiteral("Paquet « introuvable »"));
    // what() must stay valid in copies: exceptions are copied when thrown and caught by value.
    const AppException copy = e;
    QCOMPARE(QByteArray(copy.what()), QStringLiteral("Paquet « introuvable »").toLocal8Bit());

    // raise() is QException's own, so the dynamic type is lost on purpose when rethrown
    // through a future; the callers rely on catching it before that.
    try {
        e.raise();
        QFAIL("raise() did not throw");
    } catch (const AppException &) {
        QFAIL("AppException must arrive as a plain QException");
    } catch (const QException &) { }
}

void TestProcess::simpleStart_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("checkExitCode");
    QTest::addColumn<QString>("result"); // output, or "!" and the exception's text

    const auto row = [](const char *name, const QString &program, const QStringList &arguments,
                        bool check, const QString &result) {
        QTest::newRow(name) << program << arguments << check
                            << QString(result).replace("%C", childScript);
    };
    row("standard output returned", childScript, {"print", "hello\nworld"}, true, "hello\nworld");
    row("standard error ignored on exit 0", childScript, {"print", "out", "warning: x"}, true,
        "out");
    row("no output gives null string", childScript, {"exit", "0"}, true, QString());
    row("arguments passed one by one, blanks kept", childScript, {"args", "a b", "", "c"}, true,
        "[args][a b][][c]");
    row("non-zero exit unchecked is no error", childScript, {"exit", "5", "ignored"}, false,
        QString());
    row("exit code with standard error appended untrimmed", childScript,
        {"exit", "3", "disk full\n"}, true,
        "!Process '%C exit 3 disk full\n' execute with error code '3'. disk full\n");
    row("exit code without standard error has no suffix", childScript, {"exit", "1"}, true,
        "!Process '%C exit 1' execute with error code '1'");
    row("crash reported as not finished", childScript, {"crash"}, false,
        "!Process '%C crash' not finished");
    row("missing program without arguments has no trailing blank", "/nonexistent/ovt-program", {},
        true, "!Process '/nonexistent/ovt-program' not finished");
    row("percent signs in the command are kept", childScript, {"exit", "2", "%1 %2"}, true,
        "!Process '%C exit 2 %1 %2' execute with error code '2'. %1 %2");
}

void TestProcess::simpleStart()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(bool, checkExitCode);
    QFETCH(QString, result);

    Process process;
    QString got;
    try {
        got = process.simpleStart(program, arguments, checkExitCode).output();
    } catch (const AppException &e) {
        got = '!' + e.getText();
    }
    QCOMPARE(got, result);
    QCOMPARE(got.isNull(), result.isNull());
}

void TestProcess::isInstalled_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("status"); // for the fake dpkg-query; "real": the real one
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("result");

    // dpkg itself is installed wherever dpkg-query runs.
    QTest::newRow("real: installed package") << "dpkg" << QByteArray("real") << 0 << "true";
    QTest::newRow("real: unknown package")
        << "ovt-no-such-package-xyz" << QByteArray("real") << 0 << "false";
    QTest::newRow("real: pattern") << "dpk[g]" << QByteArray("real") << 0 << "true";
    QTest::newRow("installed") << "p" << QByteArray("install ok installed\\n") << 0 << "true";
    QTest::newRow("config files only")
        << "p" << QByteArray("deinstall ok config-files\\n") << 0 << "false";
    QTest::newRow("half-installed counts by prefix")
        << "p" << QByteArray("install ok half-installed\\n") << 0 << "true";
    QTest::newRow("second of several packages installed")
        << "p" << QByteArray("unknown ok not-installed\\n\\ninstall ok installed\\n") << 0
        << "true";
    QTest::newRow("prefix must start the line")
        << "p" << QByteArray(" install ok installed\\n") << 0 << "false";
    QTest::newRow("unknown package: non-zero exit, no output")
        << "p" << QByteArray() << 1 << "false";
    QTest::newRow("no dpkg-query: the process's exception")
        << "dpkg" << QByteArray("missing") << 0
        << "Process 'dpkg-query -W -f=${Status}\n dpkg' not finished";
}

void TestProcess::isInstalled()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, status);
    QFETCH(int, exitCode);
    QFETCH(QString, result);

    QTemporaryDir dir;
    QVERIFY(dir.isValid());
    const QString argsFile = dir.filePath(QStringLiteral("args"));
    QByteArray path = qgetenv("PATH");
    if (status == "real" && QStandardPaths::findExecutable(QStringLiteral("dpkg-query")).isEmpty())
        QSKIP("dpkg-query is not installed on this machine");
    if (status == "missing") {
        path = QFile::encodeName(dir.path());
    } else if (status != "real") {
        qputenv("OVT_FAKE_DPKG_ARGS", QFile::encodeName(argsFile));
        qputenv("OVT_FAKE_DPKG_STATUS", status);
        qputenv("OVT_FAKE_DPKG_EXIT", QByteArray::number(exitCode));
        path = QFile::encodeName(fakeDpkgDir) + ':' + path;
    }

    QString got;
    {
        PathOverride override(path);
        try {
            got = Package(name).isInstalled() ? "true" : "false";
        } catch (const AppException &e) {
            got = e.getText();
        }
    }
    QCOMPARE(got, result);
    if (status != "real" && status != "missing") {
        QFile args(argsFile);
        QVERIFY(args.open(QIODevice::ReadOnly));
        QCOMPARE(args.readAll(), QByteArray("-W\n-f=${Status}\n\np\n"));
    }
}

QTEST_GUILESS_MAIN(TestProcess)

#include "tst_process.moc"
