#include "privatemountnamespace.h"
#include "system/orvelsecuritymonitorhelper.h"
#include "system/switchwidget.h"

#include <QApplication>
#include <QCheckBox>
#include <QFile>
#include <QJsonDocument>
#include <QJsonParseError>
#include <QLabel>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>
#include <QtTest>

#include <memory>
#include <stdexcept>

namespace {

const QString monitorFixture = QStringLiteral(OVT_FIXTURE_DIR "/monitor/orvel-security-monitor");
const QString monitorPath = QStringLiteral("/usr/sbin/orvel-security-monitor");

QString groupName(SwitchGroup group)
{
    return group == SwitchGroup::Console ? QStringLiteral("Console") : QStringLiteral("System");
}

// Everything a switch widget shows, read back through its public face and its form.
QString describe(SwitchGroup group, SwitchWidget *w)
{
    if (!w)
        return groupName(group) + QStringLiteral(":null");
    auto *check = w->findChild<QCheckBox *>(QStringLiteral("controlChB"));
    auto *label = w->findChild<QLabel *>(QStringLiteral("extraLbl"));
    QString result
        = QStringLiteral("%1:%2 long=%3 tip=%4 script=%5")
              .arg(groupName(group), w->getId(), check->text(), check->toolTip(), w->getScript());
    if (!label->isHidden())
        result += QStringLiteral(" extra=") + label->text();
    if (w->haveSlave())
        result += QStringLiteral(" slave=") + w->getSlaveId();
    if (!check->isEnabled())
        result += QStringLiteral(" gray");
    w->setChecked(false);
    w->setCheckedForced(true);
    const bool onNeedsReboot = w->needReboot();
    w->setChecked(true);
    w->setCheckedForced(false);
    const bool offNeedsReboot = w->needReboot();
    if (onNeedsReboot || offNeedsReboot)
        result += QStringLiteral(" reboot=%1%2").arg(int(onNeedsReboot)).arg(int(offNeedsReboot));
    return result;
}

QString describe(const QMap<SwitchGroup, SwitchWidget *> &map)
{
    QStringList parts;
    for (auto it = map.cbegin(); it != map.cend(); ++it)
        parts << describe(it.key(), it.value());
    return parts.join(QStringLiteral("; "));
}

QString parseErrorOf(const QByteArray &json)
{
    QJsonParseError error;
    QJsonDocument::fromJson(json, &error);
    return error.errorString();
}

// A switch with the four required keys and @p more keys.
QByteArray sw(const QByteArray &more = QByteArray(), const QByteArray &id = "7")
{
    return "{\"id\":" + id + ",\"name\":\"n\",\"longname\":\"Long\",\"script\":\"s" + id + ".sh\""
        + (more.isEmpty() ? QByteArray() : ',' + more) + '}';
}

} // namespace

class TestOrvelSecurityMonitorHelper : public QObject
{
    Q_OBJECT

public:
    TestOrvelSecurityMonitorHelper(const QString &skipReason, const QString &monitorDir)
        : _skipReason(skipReason)
        , _monitorDir(monitorDir)
    { }

private slots:
    void initTestCase();
    void init();

    void constructionFailureIsShownAndLeavesNoSwitches();
    void switches_data();
    void switches();
    void call_data();
    void call();
    void reloadKeepsPreviousSwitchesOnFailure();

private:
    void setOutput(const QByteArray &json);

    QString _skipReason;
    QString _monitorDir;
    QTemporaryDir _outputDir;
};

void TestOrvelSecurityMonitorHelper::initTestCase()
{
    if (!_skipReason.isEmpty())
        QSKIP(qPrintable(_skipReason));
    QVERIFY(_outputDir.isValid());
    qputenv("OVT_MONITOR_OUTPUT",
            QFile::encodeName(_outputDir.filePath(QStringLiteral("switches.json"))));
    // The tool the helper runs is the fixture, seen at the fixed path in this namespace only.
    QVERIFY(QFileInfo(monitorPath).isExecutable());
}

void TestOrvelSecurityMonitorHelper::init()
{
    qputenv("OVT_MONITOR_MODE", "");
    setOutput("[]");
}

void TestOrvelSecurityMonitorHelper::setOutput(const QByteArray &json)
{
    QFile file(_outputDir.filePath(QStringLiteral("switches.json")));
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(json), qint64(json.size()));
}

void TestOrvelSecurityMonitorHelper::constructionFailureIsShownAndLeavesNoSwitches()
{
    // Given a tool that fails on the first call, which the instance makes while being created
    qputenv("OVT_MONITOR_MODE", "fail");
    QString title;
    QString text;
    QTimer closer;
    connect(&closer, &QTimer::timeout, this, [&] {
        const auto boxes = QApplication::topLevelWidgets();
        for (QWidget *widget : boxes) {
            auto *box = qobject_cast<QMessageBox *>(widget);
            if (box && box->isVisible()) {
                title = box->windowTitle();
                text = box->text();
                QCOMPARE(box->standardButtons(), QMessageBox::StandardButtons(QMessageBox::Ok));
                box->button(QMessageBox::Ok)->click();
            }
        }
    });
    closer.start(10);

    OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
    closer.stop();

    QCOMPARE(title, QStringLiteral("Security options"));
    QCOMPARE(text,
             QStringLiteral("Failed to load security options .\norvel-security-monitor "
                            "finished with unexpected code: 3"));
    QVERIFY(helper.getSwitches().isEmpty());
    QVERIFY(helper.getScripts().isEmpty());
    QCOMPARE(&OrvelSecurityMonitorHelper::instance(), &helper);
}

void TestOrvelSecurityMonitorHelper::switches_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("result");
    QTest::addColumn<QString>("error");

    auto row = [](const char *name, const QByteArray &json, const QString &result,
                  const QString &error = QString()) {
        QTest::newRow(name) << json << result << error;
    };
    auto bad = [&](const char *name, const QByteArray &json, const QString &error) {
        row(name, json, QString(), error);
    };

    row("empty array gives no switches", "[]", "");
    // One switch "7" with the required keys and @p more; @p suffix follows the plain description.
    auto one = [&](const char *name, const QByteArray &more, const char *suffix,
                   const char *group = "System") {
        row(name, '[' + sw(more) + ']',
            QStringLiteral("%1:7 long=Long tip=Long script=s7.sh%2").arg(group, suffix));
    };
    one("required keys only", {}, "");
    row("id in six significant digits", '[' + sw({}, "1234567") + ']',
        "System:1.23457e+06 long=Long tip=Long script=s1234567.sh");
    row("fractional id", '[' + sw({}, "2.5") + ']', "System:2.5 long=Long tip=Long script=s2.5.sh");
    row("tooltip given", '[' + sw("\"tooltip\":\"Tip\"") + ']',
        "System:7 long=Long tip=Tip script=s7.sh");
    one("empty tooltip falls back to the long name", "\"tooltip\":\"\"", "");
    one("extra text shown", "\"extra\":\"More\"", " extra=More");
    one("empty extra text ignored", "\"extra\":\"\"", "");
    one("slave converted like the id", "\"slave\":12", " slave=12");
    one("gray 0 is false", "\"gray\":0", "");
    one("gray 0.4 rounds to false", "\"gray\":0.4", "");
    one("gray 0.5 rounds to true", "\"gray\":0.5", " gray");
    one("gray -0.5 rounds away from zero", "\"gray\":-0.5", " gray");
    one("gray 2 is true", "\"gray\":2", " gray");
    one("reboot on enabling", "\"enableNeedReboot\":1", " reboot=10");
    one("reboot on disabling", "\"enableNeedReboot\":0,\"disableNeedReboot\":1", " reboot=01");
    one("group console", "\"group\":\"console\"", "", "Console");
    one("group Console with capital is System", "\"group\":\"Console\"", "");
    one("unknown keys ignored", "\"colour\":\"red\"", "");
    row("console first, each group in reverse order",
        '[' + sw({}, "1") + ',' + sw({}, "2") + ',' + sw("\"group\":\"console\"", "3") + ','
            + sw("\"group\":\"console\"", "4") + ']',
        "Console:4 long=Long tip=Long script=s4.sh; Console:3 long=Long tip=Long script=s3.sh; "
        "System:2 long=Long tip=Long script=s2.sh; System:1 long=Long tip=Long script=s1.sh");
    row("empty name gives a null entry",
        "[{\"id\":1,\"name\":\"\",\"longname\":\"L\",\"script\":\"s\"}]", "System:null");

    bad("not JSON", "[", "Json parse error:\n" + parseErrorOf("["));
    bad("no output", "", "Json parse error:\n" + parseErrorOf(""));
    bad("object instead of array", "{}", "Expected json array");
    bad("element not an object", "[1]", "Expected json object");
    bad("bad element after a good one abandons all", '[' + sw() + ",[]]", "Expected json object");
    bad("missing id", "[{\"name\":\"n\",\"longname\":\"L\",\"script\":\"s\"}]",
        "Json object should contain key 'id'");
    bad("missing name", "[{\"id\":1,\"longname\":\"L\",\"script\":\"s\"}]",
        "Json object should contain key 'name'");
    bad("missing longname", "[{\"id\":1,\"name\":\"n\",\"script\":\"s\"}]",
        "Json object should contain key 'longname'");
    bad("missing script", "[{\"id\":1,\"name\":\"n\",\"longname\":\"L\"}]",
        "Json object should contain key 'script'");
    bad("id as string", "[{\"id\":\"1\",\"name\":\"n\",\"longname\":\"L\",\"script\":\"s\"}]",
        "Expected double");
    bad("name as number", "[{\"id\":1,\"name\":2,\"longname\":\"L\",\"script\":\"s\"}]",
        "Expected string");
    bad("script null", "[{\"id\":1,\"name\":\"n\",\"longname\":\"L\",\"script\":null}]",
        "Expected string");
    bad("extra as number", '[' + sw("\"extra\":1") + ']', "Expected string");
    bad("tooltip null", '[' + sw("\"tooltip\":null") + ']', "Expected string");
    bad("slave as string", '[' + sw("\"slave\":\"12\"") + ']', "Expected double");
    bad("group as number", '[' + sw("\"group\":0") + ']', "Expected string");
    bad("gray true", '[' + sw("\"gray\":true") + ']', "Expected bool (0/1)");
    bad("enableNeedReboot as string", '[' + sw("\"enableNeedReboot\":\"1\"") + ']',
        "Expected bool (0/1)");
    bad("disableNeedReboot false", '[' + sw("\"disableNeedReboot\":false") + ']',
        "Expected bool (0/1)");
}

void TestOrvelSecurityMonitorHelper::switches()
{
    QFETCH(QByteArray, json);
    QFETCH(QString, result);
    QFETCH(QString, error);
    setOutput(json);

    const int widgetsBefore = QApplication::topLevelWidgets().size();
    OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
    QString thrown;
    try {
        const QMap<SwitchGroup, SwitchWidget *> map = helper.switches();
        QCOMPARE(describe(map), result);
        qDeleteAll(map);
    } catch (const std::runtime_error &e) {
        thrown = QString::fromUtf8(e.what());
    }
    QCOMPARE(thrown, error);
    // Nothing is left half-built: every widget made went to the caller or was deleted.
    QCOMPARE(QApplication::topLevelWidgets().size(), widgetsBefore);
}

void TestOrvelSecurityMonitorHelper::call_data()
{
    QTest::addColumn<QByteArray>("mode");
    QTest::addColumn<QString>("error"); // for "args": the output

    QTest::newRow("arguments passed, output returned")
        << QByteArray("args") << "enable\n7\nwith blank\n";
    QTest::newRow("crash") << QByteArray("crash") << "Process crashed";
    QTest::newRow("non-zero exit")
        << QByteArray("fail") << "orvel-security-monitor finished with unexpected code: 3";
    QTest::newRow("no program") << QByteArray("missing")
                                << "orvel-security-monitor finished with error:\n";
}

void TestOrvelSecurityMonitorHelper::call()
{
    QFETCH(QByteArray, mode);
    QFETCH(QString, error);

    const QString installed = _monitorDir + QStringLiteral("/orvel-security-monitor");
    const QString aside = _monitorDir + QStringLiteral("/aside");
    if (mode == "missing")
        QVERIFY(QFile::rename(installed, aside));
    else
        qputenv("OVT_MONITOR_MODE", mode);

    QString thrown;
    try {
        thrown = QString::fromUtf8(OrvelSecurityMonitorHelper::instance().call(
            {QStringLiteral("enable"), QStringLiteral("7"), QStringLiteral("with blank")}, 10000));
    } catch (const std::runtime_error &e) {
        thrown = QString::fromUtf8(e.what());
    }
    if (mode == "missing")
        QVERIFY(QFile::rename(aside, installed));

    if (mode == "missing") {
        // Qt's own reason follows the line feed.
        QVERIFY2(thrown.startsWith(error) && thrown.size() > error.size(), qPrintable(thrown));
    } else {
        QCOMPARE(thrown, error);
    }

    // The same failures reach switches() callers unchanged.
    if (mode != "missing" && mode != "args") {
        try {
            OrvelSecurityMonitorHelper::instance().switches();
            QFAIL("no exception");
        } catch (const std::runtime_error &e) {
            QCOMPARE(QString::fromUtf8(e.what()), error);
        }
    }
}

void TestOrvelSecurityMonitorHelper::reloadKeepsPreviousSwitchesOnFailure()
{
    OrvelSecurityMonitorHelper &helper = OrvelSecurityMonitorHelper::instance();
    setOutput('[' + sw({}, "1") + ',' + sw("\"group\":\"console\"", "2") + ',' + sw({}, "3") + ','
              + "{\"id\":4,\"name\":\"\",\"longname\":\"L\",\"script\":\"skipped\"}" + ']');
    helper.reloadSwitches();
    const QList<SwitchWidget *> loaded = helper.getSwitches();
    QCOMPARE(loaded.size(), 4);
    QCOMPARE(helper.getSwitches(SwitchGroup::Console).size(), 1);
    QCOMPARE(helper.getScripts(), (QStringList {"s2.sh", "s3.sh", "s1.sh"}));
    QCOMPARE(helper.getScripts(SwitchGroup::System), (QStringList {"s3.sh", "s1.sh"}));
    QCOMPARE(helper.getScripts(SwitchGroup::Console), QStringList {"s2.sh"});

    setOutput("{}");
    try {
        helper.reloadSwitches();
        QFAIL("no exception");
    } catch (const std::runtime_error &e) {
        QCOMPARE(QString::fromUtf8(e.what()), QStringLiteral("Expected json array"));
    }
    QCOMPARE(helper.getSwitches(), loaded);

    setOutput("[]");
    helper.reloadSwitches();
    QVERIFY(helper.getSwitches().isEmpty());
    // The helper never owned them.
    qDeleteAll(loaded);
}

int main(int argc, char *argv[])
{
    // The namespace must be entered while the process has a single thread.
    QString skipReason = enterPrivateMountNamespace();
    QTemporaryDir monitorDir(QStringLiteral("/tmp/ovt-monitor-XXXXXX"));
    bool mounted = false;
    if (skipReason.isEmpty()) {
        // A directory holding only the fixture stands in for /usr/sbin, for this process alone.
        const QString target = monitorDir.filePath(QStringLiteral("orvel-security-monitor"));
        if (!monitorDir.isValid() || !QFile::copy(monitorFixture, target)
            || !QFile::setPermissions(target,
                                      QFileDevice::ReadOwner | QFileDevice::ExeOwner
                                          | QFileDevice::ReadOther | QFileDevice::ExeOther)) {
            skipReason = QStringLiteral("cannot prepare the fixture directory");
        } else if (mount(QFile::encodeName(monitorDir.path()).constData(), "/usr/sbin", nullptr,
                         MS_BIND, nullptr)
                   != 0) {
            skipReason = QStringLiteral("bind-mounting over /usr/sbin failed: %1")
                             .arg(QString::fromLocal8Bit(strerror(errno)));
        } else {
            mounted = true;
        }
    }

    QApplication app(argc, argv);
    TestOrvelSecurityMonitorHelper test(skipReason, monitorDir.path());
    const int result = QTest::qExec(&test, argc, argv);
    if (mounted)
        umount2("/usr/sbin", MNT_DETACH);
    return result;
}

#include "tst_orvelsecuritymonitorhelper.moc"
