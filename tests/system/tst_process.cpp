#include "system/appexception.h"
#include "system/package.h"
#include "system/process.h"
#include "systemtest.h"

#include <QTemporaryDir>
#include <QtTest>

static const QString child = QStringLiteral(OVT_FIXTURE_DIR "/process/child.sh");

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
    const AppException copy = AppException(QStringLiteral("Paquet « introuvable »"));
    // what() must stay valid in copies: exceptions are copied when thrown.
    QCOMPARE(QByteArray(copy.what()), QStringLiteral("Paquet « introuvable »").toLocal8Bit());
    // raise() stays QException's own: rethrown through a future, the type is lost on purpose.
    QVERIFY_EXCEPTION_THROWN(
        try { copy.raise(); } catch (const AppException &) {}, QException);
}

void TestProcess::simpleStart_data()
{
    QTest::addColumn<QString>("program");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("check");
    QTest::addColumn<QString>("result"); // output, or "!" and the exception's text (%C: child)

    const auto row = [](const char *name, const QStringList &arguments, bool check,
                        const QString &result, const QString &program = child) {
        QTest::newRow(name) << program << arguments << check
                            << QString(result).replace("%C", child);
    };
    row("stdout returned, stderr ignored", {"print", "hi\nyou", "warning"}, true, "hi\nyou");
    row("no output: null string", {"exit", "0"}, true, QString());
    row("arguments kept apart", {"args", "a b", "", "c"}, true, "[args][a b][][c]");
    row("input closed: a reader ends", {"stdin"}, true, "read");
    row("NUL byte kept", {"nul"}, true, QString::fromLatin1("a\0b", 3));
    row("exit code unchecked", {"exit", "5", "ignored"}, false, QString());
    row("stderr appended untrimmed", {"exit", "3", "full\n"}, true,
        "!Process '%C exit 3 full\n' execute with error code '3'. full\n");
    row("no stderr, no suffix", {"exit", "1"}, true,
        "!Process '%C exit 1' execute with error code '1'");
    row("crash", {"crash"}, false, "!Process '%C crash' not finished");
    row("no program, no trailing blank", {}, true, "!Process '/nonexistent/x' not finished",
        "/nonexistent/x");
    row("percent signs kept", {"exit", "2", "%1 %2"}, true,
        "!Process '%C exit 2 %1 %2' execute with error code '2'. %1 %2");
}

void TestProcess::simpleStart()
{
    QFETCH(QString, program);
    QFETCH(QStringList, arguments);
    QFETCH(bool, check);
    QFETCH(QString, result);

    Process process;
    QString got;
    try {
        got = process.simpleStart(program, arguments, check).output();
    } catch (const AppException &e) {
        got = '!' + e.getText();
    }
    QCOMPARE(got, result);
    QCOMPARE(got.isNull(), result.isNull());
}

void TestProcess::isInstalled_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("status"); // the fake's output; "real", "missing": no fake
    QTest::addColumn<int>("exitCode");
    QTest::addColumn<QString>("result");

    const auto row = [](const char *name, const char *package, const char *status,
                        const char *result, int exitCode = 0) {
        QTest::newRow(name) << package << QByteArray(status) << exitCode << result;
    };
    // dpkg itself is installed wherever dpkg-query runs.
    row("real: installed", "dpkg", "real", "true");
    row("real: unknown", "ovt-no-such-package-xyz", "real", "false");
    row("installed", "p", "install ok installed\\n", "true");
    row("config files only: anchored", "p", "deinstall ok config-files\\n", "false");
    row("half-installed: prefix only", "p", "install ok half-installed\\n", "true");
    row("second line", "p", "unknown ok not-installed\\n\\ninstall ok installed\\n", "true");
    row("unknown: exit 1, no output", "p", "", "false", 1);
    row("no dpkg-query", "dpkg", "missing",
        "Process 'dpkg-query -W -f=${Status}\n dpkg' not finished");
}

void TestProcess::isInstalled()
{
    QFETCH(QString, name);
    QFETCH(QByteArray, status);
    QFETCH(int, exitCode);
    QFETCH(QString, result);

    const bool fake = status != "real" && status != "missing";
    if (status == "real" && QStandardPaths::findExecutable("dpkg-query").isEmpty())
        QSKIP("dpkg-query is not installed on this machine");
    QTemporaryDir dir;
    const QString args = dir.filePath("args");
    EnvVar argsFile("OVT_FAKE_DPKG_ARGS", QFile::encodeName(args));
    EnvVar output("OVT_FAKE_DPKG_STATUS", status);
    EnvVar exit("OVT_FAKE_DPKG_EXIT", QByteArray::number(exitCode));
    EnvVar path("PATH",
                fake                      ? pathWith(OVT_FIXTURE_DIR "/fakedpkg")
                    : status == "missing" ? QFile::encodeName(dir.path())
                                          : qgetenv("PATH"));

    QString got;
    try {
        got = Package(name).isInstalled() ? "true" : "false";
    } catch (const AppException &e) {
        got = e.getText();
    }
    QCOMPARE(got, result);
    if (fake)
        QCOMPARE(readFile(args), QByteArray("-W\n-f=${Status}\n\np\n"));
}

QTEST_GUILESS_MAIN(TestProcess)

#include "tst_process.moc"
