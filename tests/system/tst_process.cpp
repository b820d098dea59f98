// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/appexception.h"
#include "system/package.h"
#include "system/process.h"
#include "systemtest.h"

#include <QtTest>

using namespace OvtTest;

static const QString child = QStringLiteral(OVT_FIXTURE_DIR "/process/child.sh");

class TestProcess : public QObject
{
    Q_OBJECT

private slots:
    void appException()
    {
        const AppException copy = AppException(QStringLiteral("Paquet « introuvable »"));
        // what() must stay valid in copies: exceptions are copied when thrown.
        QCOMPARE(QByteArray(copy.what()), QStringLiteral("Paquet « introuvable »").toLocal8Bit());
    }

    void simpleStart_data()
    {
        // The child's arguments, "|" apart ("-": none; "nowhere": no program); whether the exit
        // code is checked; the output, or "!" and the exception's text (%C: the child).
        table();
        row("stdout returned, stderr ignored", "print|hi\\nyou|warning; 1; hi\\nyou");
        row("no output: null string", "exit|0; 1; <null>");
        row("arguments kept apart", "args|a b||c; 1; [args][a b][][c]");
        row("input closed: a reader ends", "stdin; 1; read");
        row("NUL byte kept", "nul; 1; a\\0b");
        row("exit code unchecked", "exit|5|ignored; 0; <null>");
        row("stderr appended untrimmed",
            "exit|3|full\\n; 1;"
            "!Process '%C exit 3 full\\n' execute with error code '3'. full\\n");
        row("no stderr, no suffix", "exit|1; 1; !Process '%C exit 1' execute with error code '1'");
        row("crash", "crash; 0; !Process '%C crash' not finished");
        row("no program, no trailing blank", "nowhere; 1; !Process '/nonexistent/x' not finished");
        row("percent signs kept",
            "exit|2|%1 %2; 1;"
            "!Process '%C exit 2 %1 %2' execute with error code '2'. %1 %2");
    }

    void simpleStart()
    {
        const auto [command, check, text] = fields<3>();
        const auto unescape = [](QString s) {
            return s.replace("\\n", "\n").replace("\\0", QString(QChar(0))).replace("%C", child);
        };
        const QString result = text == "<null>" ? QString() : unescape(text);
        QStringList arguments = unescape(command).split('|');
        QString got;
        try {
            got = command == "nowhere"
                ? Process().simpleStart("/nonexistent/x", {}, true).output()
                : Process().simpleStart(child, arguments, check == "1").output();
        } catch (const AppException &e) {
            got = '!' + e.getText();
        }
        QCOMPARE(got, result);
        QCOMPARE(got.isNull(), result.isNull());
    }

    void isInstalled_data()
    {
        // The name; the fake dpkg-query's output and exit code ("real": the real one, which every
        // Debian system has; "missing": none on PATH); the result.
        table();
        // dpkg itself is installed wherever dpkg-query runs.
        row("real: installed", "dpkg; real; 0; true");
        row("real: unknown", "ovt-no-such-package-xyz; real; 0; false");
        row("installed", "p; install ok installed\\n; 0; true");
        row("config files only: anchored", "p; deinstall ok config-files\\n; 0; false");
        row("half-installed: prefix only", "p; install ok half-installed\\n; 0; true");
        row("second line", "p; unknown ok not-installed\\n\\ninstall ok installed\\n; 0; true");
        row("unknown: exit 1, no output", "p;; 1; false");
        row("no dpkg-query",
            "dpkg; missing; 0; Process 'dpkg-query -W -f=${Status}\n dpkg' not finished");
    }

    void isInstalled()
    {
        const auto [name, status, exitCode, result] = fields<4>();
        const bool fake = status != "real" && status != "missing";
        QTemporaryDir dir;
        const QString args = dir.filePath("args");
        EnvVar argsFile("OVT_FAKE_DPKG_ARGS", QFile::encodeName(args));
        EnvVar output("OVT_FAKE_DPKG_STATUS", status.toLatin1());
        EnvVar exit("OVT_FAKE_DPKG_EXIT", exitCode.toLatin1());
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
};

QTEST_GUILESS_MAIN(TestProcess)

#include "tst_process.moc"
