// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/changedisplayelementdata.h"
#include "element/serviceconfigureheavyelementdata.h"
#include "element/serviceheavyelementdata.h"

#include <QtTest>

class TstElementData : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void nameAndImport()
    {
        ServiceLightElementData data;
        data.insert("name", 42);
        QCOMPARE(data.name(), QStringLiteral("42"));

        // Only keys the record already holds take the other's values; typed fields stay.
        data.insert("user", "alice");
        data.setState(true, "mine");
        ServiceLightElementData other;
        other.setName("new");
        other.insert("isLogin", true);
        other.setState(false, "theirs");
        QCOMPARE(&data.importFrom(other), &data);
        QCOMPARE(static_cast<const ElementData::QMap &>(data),
                 (ElementData::QMap {{"name", "new"}, {"user", "alice"}}));
        QCOMPARE(data.textState(), QStringLiteral("mine"));
        QVERIFY(data.state());
    }
    void setState()
    {
        // An empty text is filled in from the state; an own text is kept whatever the state.
        QStringList states;
        for (const auto &[state, text] :
             {std::pair(true, ""), {false, ""}, {true, "up"}, {false, "up"}}) {
            ServiceLightElementData data;
            data.setState(state, text);
            states << QString::number(data.state()) + data.textState();
            QVERIFY(data.isEmpty()); // the state never lands in the property map
        }
        QCOMPARE(states.join(' '), QString("1started 0stopped 1up 0up"));
    }
    void copies()
    {
        ChangeDisplayElementData display(3), displayAssigned;
        displayAssigned = display;
        QCOMPARE(ChangeDisplayElementData(display).displayType() * displayAssigned.displayType(),
                 9);

        // The heavy record's data lines belong to the record that read them.
        ServiceHeavyElementData heavy, heavyAssigned;
        heavy.setName("nginx"), heavy.setState(true, QString()), heavy.data() << "line";
        heavy.setConfigData("workers 2;"), heavy.setConfigFile("/etc/nginx.conf");
        heavyAssigned.data() << "own";
        heavyAssigned = heavy;
        ServiceHeavyElementData heavyCopy(heavy);
        QCOMPARE(heavyCopy.data() + heavyAssigned.data(), QStringList {"own"});
        for (const ServiceHeavyElementData *data : {&heavyCopy, &heavyAssigned}) {
            QCOMPARE(QString::number(data->state()) + data->name() + data->textState()
                         + data->configData() + data->configFile(),
                     QStringLiteral("1nginxstartedworkers 2;/etc/nginx.conf"));
        }

        // Copy-constructed configure records start without incompatible modes; assigned ones
        // take them (even from themselves), and everything else is copied either way.
        ServiceConfigureHeavyElementData configure, assigned;
        configure.setUser("admin"), configure.setPassword("secret");
        configure.tasks().insert("apply", "run"), configure.checkedItems() << "a";
        configure.incompatibleModes() << "a|b";
        auto &self = configure;
        configure = self;
        assigned.incompatibleModes() << "own";
        assigned = configure;
        ServiceConfigureHeavyElementData copy(configure);
        QCOMPARE(copy.incompatibleModes().size() + configure.incompatibleModes().size(), 1);
        QCOMPARE(assigned.incompatibleModes(), QSet<QString> {"a|b"});
        for (ServiceConfigureHeavyElementData *data : {&copy, &assigned}) {
            QCOMPARE(data->user() + data->password() + data->tasks().value("apply")
                         + data->checkedItems().values().join(""),
                     QString("adminsecretruna"));
        }
    }
};

QTEST_GUILESS_MAIN(TstElementData)

#include "tst_elementdata.moc"
