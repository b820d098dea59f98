// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/orvelsecuritymonitorhelper.h"
#include "system/switchwidget.h"
#include "systemtest.h"

#include <QApplication>
#include <QCheckBox>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

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
        s += w->getId() + ' ' + check->text() + ' ' + check->toolTip() + ' ' + w->getScript();
        s += (label->isHidden() ? "" : " extra=" + label->text())
            + (w->haveSlave() ? " slave=" + w->getSlaveId() : "");
        s += check->isEnabled() ? "" : " gray";
        w->setCheckedForced(true); // from off to on
        s += w->needReboot() ? " rebootOn" : "";
        w->setChecked(true);
        w->setCheckedForced(false); // from on to off
        parts << s + (w->needReboot() ? " rebootOff" : "");
    }
    return parts.join("; ");
}

// A switch with the required keys (script "s" and the id), changed by @p more, without @p drop.
QByteArray sw(const QJsonObject &more = {}, double id = 7, const QString &drop = {})
{
    QJsonObject o {
        {"id", id}, {"name", "n"}, {"longname", "Long"}, {"script", "s" + QString::number(id)}};
    for (auto it = more.begin(); it != more.end(); ++it)
        o.insert(it.key(), *it);
    o.remove(drop);
    return QJsonDocument(o).toJson(QJsonDocument::Compact);
}

QString skipReason, monitorDir; // set by main()
QTemporaryDir outputDir;

void setOutput(const QByteArray &json)
{
    QVERIFY(writeFile(outputDir.filePath("out"), json));
}

} // namespace

class TestOrvelSecurityMonitorHelper : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void constructionFailureIsShownAndLeavesNoSwitches();
    void switches_data();
    void switches();
    void call_data();
    void call();
    void reloadKeepsPreviousSwitchesOnFailure();
};

void TestOrvelSecurityMonitorHelper::initTestCase()
{
    if (!skipReason.isEmpty())
        QSKIP(qPrintable(skipReason));
    qputenv("OVT_MONITOR_OUTPUT", QFile::encodeName(outputDir.filePath("out")));
}

void TestOrvelSecurityMonitorHelper::init()
{
    qputenv("OVT_MONITOR_MODE", "");
    setOutput("[]");
}

void TestOrvelSecurityMonitorHelper::constructionFailureIsShownAndLeavesNoSwitches()
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
             QStringLiteral("Security options|Failed to load security options .\n"
                            "orvel-security-monitor finished with unexpected code: 3"));
    QVERIFY(helper.getSwitches().isEmpty());
    QCOMPARE(&OrvelSecurityMonitorHelper::instance(), &helper);
}

void TestOrvelSecurityMonitorHelper::switches_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("result"); // "!": the error message follows

    const auto row = [](const char *name, const QByteArray &json, const QString &result) {
        QTest::newRow(name) << json << result;
    };
    // One switch "7" changed by @p more; @p suffix follows the plain description.
    const auto one = [&](const char *name, const QJsonObject &more, const QString &suffix) {
        row(name, '[' + sw(more) + ']', "System:7 Long Long s7" + suffix);
    };
    row("empty array", "[]", "");
    one("required keys, unknown key ignored", {{"colour", "red"}}, "");
    row("id in six digits", '[' + sw({}, 1234567) + ']',
        "System:1.23457e+06 Long Long s1.23457e+06");
    row("tooltip, extra, slave like the id",
        '[' + sw({{"tooltip", "T"}, {"extra", "X"}, {"slave", 12}}) + ']',
        "System:7 Long T s7 extra=X slave=12");
    one("empty tooltip: the long name", {{"tooltip", ""}}, "");
    one("gray 0.4 rounds to false", {{"gray", 0.4}}, "");
    one("gray 0.5 rounds to true", {{"gray", 0.5}}, " gray");
    one("gray -0.5 away from zero", {{"gray", -0.5}}, " gray");
    one("reboot on enabling", {{"enableNeedReboot", 1}}, " rebootOn");
    one("reboot on disabling", {{"enableNeedReboot", 0}, {"disableNeedReboot", 1}}, " rebootOff");
    one("group Console is System", {{"group", "Console"}}, "");
    row("console first, groups reversed",
        '[' + sw({}, 1) + ',' + sw({}, 2) + ',' + sw({{"group", "console"}}, 3) + ','
            + sw({{"group", "console"}}, 4) + ']',
        "Console:4 Long Long s4; Console:3 Long Long s3; System:2 Long Long s2; System:1 Long Long "
        "s1");
    // The builder refuses a switch without name, long name or script.
    for (const char *key : {"name", "longname", "script"})
        QTest::addRow("empty %s: null entry", key) << '[' + sw({{key, ""}}) + ']' << "System:null";
    row("rejected record leaks nothing into the next",
        '['
            + sw({{"name", ""}, {"extra", "X"}, {"slave", 9}, {"gray", 1}, {"enableNeedReboot", 1}},
                 1)
            + ',' + sw({}, 2) + ']',
        "System:2 Long Long s2; System:null");
    // Errors: every validation message, and each key through its own reader.
    QJsonParseError error;
    QJsonDocument::fromJson("[", &error);
    row("not JSON", "[", "!Json parse error:\n" + error.errorString());
    row("object, not array", "{}", "!Expected json array");
    row("bad element after a good one", '[' + sw() + ",1]", "!Expected json object");
    for (const char *key : {"id", "name", "longname", "script"})
        row(qPrintable(QString("missing ") + key), '[' + sw({}, 7, key) + ']',
            QString("!Json object should contain key '%1'").arg(key));
    // Each key through its own reader: "key=value=type", the value in JSON.
    for (const QString &bad : words("id=\"7\"=double name=2=string longname=2=string "
                                    "script=null=string extra=1=string tooltip=null=string "
                                    "slave=\"12\"=double group=0=string gray=true=bool "
                                    "enableNeedReboot=\"1\"=bool disableNeedReboot=false=bool")) {
        const QStringList f = bad.split('=');
        const QJsonValue value = QJsonDocument::fromJson('[' + f[1].toUtf8() + ']').array().at(0);
        QTest::addRow("bad %s", qPrintable(f[0])) << '[' + sw({{f[0], value}})
                + ']' << "!Expected " + f[2] + (f[2] == "bool" ? " (0/1)" : "");
    }
}

void TestOrvelSecurityMonitorHelper::switches()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, result);
    setOutput(json);

    const int widgetsBefore = QApplication::topLevelWidgets().size();
    QString got;
    try {
        const QMap<SwitchGroup, SwitchWidget *> map
            = OrvelSecurityMonitorHelper::instance().switches();
        got = describe(map);
        qDeleteAll(map);
    } catch (const std::runtime_error &e) {
        got = '!' + QString::fromUtf8(e.what());
    }
    QCOMPARE(got, result);
    // Nothing is left half-built: every widget made went to the caller or was deleted.
    QCOMPARE(QApplication::topLevelWidgets().size(), widgetsBefore);
}

void TestOrvelSecurityMonitorHelper::call_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QString>("result"); // the output, or the error

    QTest::newRow("arguments in, output out") << QByteArray("args") << "enable\n7\nwith blank\n";
    QTest::newRow("crash") << QByteArray("crash") << "Process crashed";
    QTest::newRow("non-zero exit")
        << QByteArray("fail") << "orvel-security-monitor finished with unexpected code: 3";
    QTest::newRow("no program") << QByteArray("missing")
                                << "orvel-security-monitor finished with error:\n";
}

void TestOrvelSecurityMonitorHelper::call()
{
    QFETCH(QByteArray, mode);
    QFETCH(QString, result);

    const QString installed = monitorDir + "/orvel-security-monitor", aside = monitorDir + "/aside";
    QVERIFY(mode != "missing" || QFile::rename(installed, aside));
    qputenv("OVT_MONITOR_MODE", mode);
    QString got;
    try {
        got = QString::fromUtf8(
            OrvelSecurityMonitorHelper::instance().call({"enable", "7", "with blank"}, 10000));
    } catch (const std::runtime_error &e) {
        got = QString::fromUtf8(e.what());
    }
    QVERIFY(mode != "missing" || QFile::rename(aside, installed));
    // For a missing program, Qt's own reason follows the line feed.
    QVERIFY2(mode == "missing" ? got.startsWith(result) && got.size() > result.size()
                               : got == result,
             qPrintable(got));
}

void TestOrvelSecurityMonitorHelper::reloadKeepsPreviousSwitchesOnFailure()
{
    OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
    setOutput('[' + sw({}, 1) + ',' + sw({{"group", "console"}}, 2) + ',' + sw({}, 3) + ','
              + sw({{"name", ""}}, 4) + ']');
    helper.reloadSwitches();
    const QList<SwitchWidget *> loaded = helper.getSwitches();
    QCOMPARE(loaded.size(), 4);
    QCOMPARE(helper.getSwitches(SwitchGroup::Console).size(), 1);
    // Null entries skipped; Console first, each group in reverse order.
    QCOMPARE(helper.getScripts(), (QStringList {"s2", "s3", "s1"}));
    QCOMPARE(helper.getScripts(SwitchGroup::System), (QStringList {"s3", "s1"}));

    setOutput("{}");
    QVERIFY_EXCEPTION_THROWN(helper.reloadSwitches(), std::runtime_error);
    QCOMPARE(helper.getSwitches(), loaded);
    setOutput("[]");
    helper.reloadSwitches();
    QVERIFY(helper.getSwitches().isEmpty());
    qDeleteAll(loaded); // the helper never owned them
}

int main(int argc, char *argv[])
{
    // The namespace must be entered while the process has a single thread.
    skipReason = enterPrivateMountNamespace();
    QTemporaryDir dir("/tmp/ovt-monitor-XXXXXX");
    monitorDir = dir.path();
    const QString target = dir.filePath("orvel-security-monitor");
    // A directory holding only the fixture stands in for /usr/sbin, for this process alone.
    if (skipReason.isEmpty()
        && (!QFile::copy(OVT_FIXTURE_DIR "/monitor/orvel-security-monitor", target)
            || !QFile::setPermissions(target, QFileDevice::ReadOwner | QFileDevice::ExeOwner)
            || mount(QFile::encodeName(monitorDir).constData(), "/usr/sbin", nullptr, MS_BIND,
                     nullptr)
                != 0))
        skipReason = "cannot put the fixture at /usr/sbin";

    QApplication app(argc, argv);
    TestOrvelSecurityMonitorHelper test;
    const int result = QTest::qExec(&test, argc, argv);
    if (skipReason.isEmpty())
        umount2("/usr/sbin", MNT_DETACH);
    return result;
}

#include "tst_orvelsecuritymonitorhelper.moc"
