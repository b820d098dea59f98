// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/orvelsecuritymonitorhelper.h"
#include "system/switchwidget.h"
#include "systemtest.h"

#include <QtTest>
#include <QtWidgets>

#include <stdexcept>

using namespace OvtTest;

namespace {

// What the helper fed the builder, as the widget shows it.
QString describe(const QMap<SwitchGroup, SwitchWidget *> &map)
{
    QStringList parts;
    for (auto it = map.cbegin(); it != map.cend(); ++it) {
        SwitchWidget *w = it.value();
        QString s = it.key() == SwitchGroup::Console ? "Console:" : "System:";
        if (!w) {
            parts << s + "null";
            continue;
        }
        auto *check = w->findChild<QCheckBox *>("controlChB");
        auto *label = w->findChild<QLabel *>("extraLbl");
        s += w->getId() + ' ' + check->text() + ' ' + check->toolTip() + ' ' + w->getScript()
            + (label->isHidden() ? "" : " extra=" + label->text())
            + (w->haveSlave() ? " slave=" + w->getSlaveId() : "")
            + (check->isEnabled() ? "" : " gray");
        w->setCheckedForced(true); // from off to on
        s += w->needReboot() ? " rebootOn" : "";
        w->setChecked(true);
        w->setCheckedForced(false); // from on to off
        parts << s + (w->needReboot() ? " rebootOff" : "");
    }
    return parts.join(" | ");
}

// @p json, quoted with ', with each "@ID{MORE}" replaced by a switch with the required keys
// (script "sID") changed by the JSON object MORE (optional).
QByteArray expand(QString json)
{
    json.replace('\'', '"');
    static const QRegularExpression at("@([\\d.]+)(\\{[^}]*\\})?");
    for (QRegularExpressionMatch m; (m = at.match(json)).hasMatch();) {
        QJsonObject o {{"id", m.captured(1).toDouble()},
                       {"name", "n"},
                       {"longname", "Long"},
                       {"script", "s" + QString::number(m.captured(1).toDouble())}};
        const QJsonObject more = QJsonDocument::fromJson(m.captured(2).toUtf8()).object();
        for (auto it = more.begin(); it != more.end(); ++it)
            o.insert(it.key(), *it);
        json.replace(m.capturedStart(), m.capturedLength(),
                     QJsonDocument(o).toJson(QJsonDocument::Compact));
    }
    return json.toUtf8();
}

QString skipReason; // set by main()
QTemporaryDir outputDir;

void setOutput(const QString &json)
{
    QVERIFY(writeFile(outputDir.filePath("out"), expand(json)));
}

} // namespace

class TestOrvelSecurityMonitorHelper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        if (!skipReason.isEmpty())
            QSKIP(qPrintable(skipReason));
        qputenv("OVT_MONITOR_OUTPUT", QFile::encodeName(outputDir.filePath("out")));
    }

    void init()
    {
        qputenv("OVT_MONITOR_MODE", "");
        setOutput("[]");
    }

    void constructionFailureIsShownAndLeavesNoSwitches()
    {
        // The instance's first call, made while it is created, fails.
        qputenv("OVT_MONITOR_MODE", "fail");
        QString shown;
        QTimer closer;
        connect(&closer, &QTimer::timeout, this, [&] {
            if (auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget())) {
                shown = box->windowTitle() + '|' + box->text();
                QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
                box->button(QMessageBox::Ok)->click();
            }
        });
        closer.start(10);
        OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
        closer.stop();
        QCOMPARE(shown,
                 "Security options|Failed to load security options .\n"
                 "orvel-security-monitor finished with unexpected code: 3");
        QVERIFY(helper.getSwitches().isEmpty());
    }

    void switches_data()
    {
        // The monitor's output (see expand()), or "!" and the monitor's mode; the switches
        // described, or "!" and the error.
        table();
        row("empty array", "[];");
        row("required keys, unknown key ignored", "[@7{'colour':'red'}]; System:7 Long Long s7");
        row("id in six digits", "[@1234567]; System:1.23457e+06 Long Long s1.23457e+06");
        row("tooltip, extra, slave like the id",
            "[@7{'tooltip':'T','extra':'X','slave':12}]; System:7 Long T s7 extra=X slave=12");
        row("empty tooltip: the long name", "[@7{'tooltip':''}]; System:7 Long Long s7");
        row("gray: disabled", "[@7{'gray':0.5}]; System:7 Long Long s7 gray");
        row("reboot on enabling", "[@7{'enableNeedReboot':1}]; System:7 Long Long s7 rebootOn");
        row("reboot on disabling",
            "[@7{'enableNeedReboot':0,'disableNeedReboot':1}];"
            "System:7 Long Long s7 rebootOff");
        row("group Console is System", "[@7{'group':'Console'}]; System:7 Long Long s7");
        row("console first, groups reversed",
            "[@1,@2,@3{'group':'console'},@4{'group':'console'}];"
            "Console:4 Long Long s4 | Console:3 Long Long s3 | System:2 Long Long s2 | System:1 "
            "Long Long s1");
        // The builder refuses a switch without name, long name or script.
        row("empty name: null entry", "[@7{'name':''}]; System:null");
        row("empty long name: null entry", "[@7{'longname':''}]; System:null");
        row("empty script: null entry", "[@7{'script':''}]; System:null");
        row("rejected record leaks nothing into the next",
            "[@1{'name':'','extra':'X','slave':9,'gray':1,'enableNeedReboot':1},@2];"
            "System:2 Long Long s2 | System:null");
        // Errors. Each key's own reader and message, as the parser gives them, is compared
        // against a reference by the fuzz target's corpus.
        QJsonParseError error;
        QJsonDocument::fromJson("[", &error);
        row("not JSON", "[; !Json parse error:\n" + error.errorString());
        row("object, not array", "{}; !Expected json array");
        row("bad element after a good one", "[@7,1]; !Expected json object");
        // The monitor fails.
        row("crash", "!crash; !Process crashed");
        row("non-zero exit", "!fail; !orvel-security-monitor finished with unexpected code: 3");
    }

    void switches()
    {
        const auto [json, result] = fields<2>();
        qputenv("OVT_MONITOR_MODE", json.startsWith('!') ? json.mid(1).toLatin1() : "");
        setOutput(json);
        const int widgetsBefore = QApplication::topLevelWidgets().size();
        QString got;
        try {
            const auto map = OrvelSecurityMonitorHelper::instance().switches();
            got = describe(map);
            qDeleteAll(map);
        } catch (const std::runtime_error &e) {
            got = '!' + QString::fromUtf8(e.what());
        }
        QCOMPARE(got, result);
        // Nothing is left half-built: every widget made went to the caller or was deleted.
        QCOMPARE(QApplication::topLevelWidgets().size(), widgetsBefore);
    }

    void call()
    {
        qputenv("OVT_MONITOR_MODE", "args");
        OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
        QCOMPARE(helper.call({"enable", "7", "with blank"}, 10000), "enable\n7\nwith blank\n");
        // Without the program, Qt's own reason follows the line feed.
        QTemporaryDir empty;
        QVERIFY(mount(QFile::encodeName(empty.path()), "/usr/sbin", nullptr, MS_BIND, nullptr)
                == 0);
        QString error;
        try {
            helper.call({}, 10000);
        } catch (const std::runtime_error &e) {
            error = e.what();
        }
        umount2("/usr/sbin", MNT_DETACH);
        QVERIFY2(error.startsWith("orvel-security-monitor finished with error:\n")
                     && !error.endsWith('\n'),
                 qPrintable(error));
    }

    void reloadKeepsPreviousSwitchesOnFailure()
    {
        OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
        setOutput("[@1,@2{'group':'console'},@3,@4{'name':''}]");
        helper.reloadSwitches();
        const QList<SwitchWidget *> loaded = helper.getSwitches();
        QCOMPARE(loaded.size(), 4);
        QCOMPARE(helper.getSwitches(SwitchGroup::Console).size(), 1);
        // Null entries skipped; Console first, each group in reverse order.
        QCOMPARE(helper.getScripts(), (QStringList {"s2", "s3", "s1"}));
        QCOMPARE(helper.getScripts(SwitchGroup::System), (QStringList {"s3", "s1"}));
        setOutput("{}");
        QVERIFY_EXCEPTION_THROWN(helper.reloadSwitches(), std::runtime_error);
        QCOMPARE(helper.getSwitches(), loaded); // a failed reload loses nothing
        setOutput("[]");
        helper.reloadSwitches(); // the helper lets go of them
        qDeleteAll(loaded); // the helper never owned them
    }
};

int main(int argc, char *argv[])
{
    // The namespace must be entered while the process has a single thread. In it the fixture's
    // directory stands in for /usr/sbin, for this process alone.
    skipReason = enterPrivateMountNamespace();
    if (skipReason.isEmpty()
        && mount(OVT_FIXTURE_DIR "/monitor", "/usr/sbin", nullptr, MS_BIND, nullptr) != 0)
        skipReason = "cannot put the fixture at /usr/sbin";
    QApplication app(argc, argv);
    TestOrvelSecurityMonitorHelper test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_orvelsecuritymonitorhelper.moc"
