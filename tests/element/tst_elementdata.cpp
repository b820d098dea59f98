#include "element/changedisplayelementdata.h"
#include "element/elementdata.h"
#include "element/serviceconfigureheavyelementdata.h"
#include "element/serviceheavyelementdata.h"
#include "element/servicelightelementdata.h"

#include <QtTest>

class TstElementData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void name();
    void importFrom_data();
    void importFrom();
    void importFromKeepsTypedFields();
    void setState_data();
    void setState();
    void typedFieldsCopy();
    void serviceHeavyCopiesLeaveDataOut();
    void serviceConfigureHeavyCopies();
    void selfAssignmentKeepsEverything();
};

using Map = QMap<QString, QVariant>;

static ElementData record(const Map &values)
{
    ElementData data;
    for (auto it = values.cbegin(); it != values.cend(); ++it)
        data.insert(it.key(), it.value());
    return data;
}

void TstElementData::name()
{
    ElementData data;
    QCOMPARE(data.name(), QString());
    QVERIFY(!data.contains("name"));
    data.setName("web");
    QCOMPARE(data.name(), QStringLiteral("web"));
    data.insert("name", 42);
    QCOMPARE(data.name(), QStringLiteral("42"));
}

void TstElementData::importFrom_data()
{
    QTest::addColumn<Map>("target");
    QTest::addColumn<Map>("source");
    QTest::addColumn<Map>("expected");

    QTest::newRow("only shared keys change, others are not added")
        << Map {{"name", "old"}, {"user", "alice"}} << Map {{"name", "new"}, {"isLogin", true}}
        << Map {{"name", "new"}, {"user", "alice"}};
    QTest::newRow("value types follow the source")
        << Map {{"state", "unknown"}} << Map {{"state", true}} << Map {{"state", true}};
    QTest::newRow("keys are case-sensitive")
        << Map {{"Name", "a"}} << Map {{"name", "b"}} << Map {{"Name", "a"}};
}

void TstElementData::importFrom()
{
    QFETCH(Map, target);
    QFETCH(Map, source);
    QFETCH(Map, expected);

    ElementData data = record(target);
    const ElementData other = record(source);
    ElementData &result = data.importFrom(other);
    QCOMPARE(&result, &data);
    QCOMPARE(static_cast<const Map &>(data), expected);

    data.importFrom(data);
    QCOMPARE(static_cast<const Map &>(data), expected);
}

void TstElementData::importFromKeepsTypedFields()
{
    ServiceLightElementData target;
    target.setState(true, "mine");
    target.setName("a");
    ServiceLightElementData source;
    source.setState(false, "theirs");
    source.setName("b");
    target.importFrom(source);
    QCOMPARE(target.name(), QStringLiteral("b"));
    QCOMPARE(target.state(), true);
    QCOMPARE(target.textState(), QStringLiteral("mine"));
}

void TstElementData::setState_data()
{
    QTest::addColumn<bool>("state");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    QTest::newRow("running without text") << true << QString() << QObject::tr("started");
    QTest::newRow("stopped without text") << false << QString() << QObject::tr("stopped");
    QTest::newRow("running with a text") << true << "failed"
                                         << "failed";
    QTest::newRow("stopped with a text") << false << "starting"
                                         << "starting";
}

void TstElementData::setState()
{
    QFETCH(bool, state);
    QFETCH(QString, text);
    QFETCH(QString, expected);

    ServiceLightElementData data;
    data.setState(state, text);
    QCOMPARE(data.state(), state);
    QCOMPARE(data.textState(), expected);
    // The state never lands in the property map.
    QVERIFY(data.isEmpty());
}

void TstElementData::typedFieldsCopy()
{
    ChangeDisplayElementData display(3);
    display.setName("list");
    ChangeDisplayElementData displayAssigned;
    displayAssigned = display;
    for (const auto &copy : {ChangeDisplayElementData(display), displayAssigned}) {
        QCOMPARE(copy.displayType(), 3);
        QCOMPARE(copy.name(), QStringLiteral("list"));
    }
    ServiceLightElementData light;
    light.setState(true, "up");
    ServiceLightElementData lightAssigned;
    lightAssigned = light;
    for (const auto &copy : {ServiceLightElementData(light), lightAssigned})
        QVERIFY(copy.state() && copy.textState() == QStringLiteral("up"));
}

void TstElementData::serviceHeavyCopiesLeaveDataOut()
{
    ServiceHeavyElementData source;
    source.setName("nginx");
    source.setState(true, QString());
    source.data() << "line 1"
                  << "line 2";
    source.setConfigData("worker_processes 2;");
    source.setConfigFile("/etc/nginx/nginx.conf");

    ServiceHeavyElementData copy(source);
    QVERIFY(copy.data().isEmpty());
    ServiceHeavyElementData assigned;
    assigned.data() << "own";
    assigned = source;
    QCOMPARE(assigned.data(), QStringList {"own"});
    for (const ServiceHeavyElementData *data : {&copy, &assigned}) {
        QCOMPARE(data->configData(), source.configData());
        QCOMPARE(data->configFile(), source.configFile());
        QCOMPARE(data->textState(), source.textState());
        QCOMPARE(data->name(), QStringLiteral("nginx"));
    }
}

void TstElementData::serviceConfigureHeavyCopies()
{
    ServiceConfigureHeavyElementData source;
    source.setName("audit");
    source.setState(false, QString());
    source.scriptModeCommands() << "cmd";
    source.headers() << "header";
    source.descriptions() << "description";
    source.tasks().insert("apply", "run");
    source.setUser("admin");
    source.setPassword("secret");
    source.checkedItems() << "a";
    source.uncheckedItems() << "b";
    source.incompatibleModes() << "a|b";

    ServiceConfigureHeavyElementData copy(source);
    ServiceConfigureHeavyElementData assigned;
    assigned.incompatibleModes() << "own";
    assigned = source;
    for (ServiceConfigureHeavyElementData *data : {&copy, &assigned}) {
        QCOMPARE(data->name(), QStringLiteral("audit"));
        QCOMPARE(data->textState(), source.textState());
        QCOMPARE(data->scriptModeCommands(), source.scriptModeCommands());
        QCOMPARE(data->headers(), source.headers());
        QCOMPARE(data->descriptions(), source.descriptions());
        QCOMPARE(data->tasks(), source.tasks());
        QCOMPARE(data->user(), QStringLiteral("admin"));
        QCOMPARE(data->password(), QStringLiteral("secret"));
        QCOMPARE(data->checkedItems(), source.checkedItems());
        QCOMPARE(data->uncheckedItems(), source.uncheckedItems());
    }
    // Copy-constructed records start without incompatible modes; assigned ones take them.
    QVERIFY(copy.incompatibleModes().isEmpty());
    QCOMPARE(assigned.incompatibleModes(), source.incompatibleModes());
}

void TstElementData::selfAssignmentKeepsEverything()
{
    ServiceConfigureHeavyElementData configure;
    configure.incompatibleModes() << "x";
    configure.setUser("u");
    auto &alias = configure;
    configure = alias;
    QCOMPARE(configure.incompatibleModes(), QSet<QString> {"x"});
    QCOMPARE(configure.user(), QStringLiteral("u"));
}

QTEST_GUILESS_MAIN(TstElementData)

#include "tst_elementdata.moc"
