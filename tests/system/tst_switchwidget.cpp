#include "system/switchwidget.h"
#include "system/switchwidgetbuilder.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <QtTest>

#include <memory>

namespace {

template<typename T> T *part(SwitchWidget *w, const char *name)
{
    return w->findChild<T *>(QLatin1String(name));
}

QString yesNo(bool b)
{
    return b ? QStringLiteral("true") : QStringLiteral("false");
}

} // namespace

class TestSwitchWidget : public QObject
{
    Q_OBJECT

private slots:
    void form();
    void behaviour_data();
    void behaviour();
    void builder_data();
    void builder();
};

void TestSwitchWidget::form()
{
    SwitchWidget w("2", "name", "Long name", "Tip", "script.sh");
    QCOMPARE(w.size(), QSize(312, 102));
    QCOMPARE(w.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(w.sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(w.minimumSize(), QSize(0, 25));
    QVERIFY(part<QHBoxLayout>(&w, "horizontalLayout_2"));
    QVERIFY(part<QHBoxLayout>(&w, "horizontalLayout"));
    auto *vertical = part<QVBoxLayout>(&w, "verticalLayout");
    QVERIFY(vertical);
    for (int row = 0; row < 3; ++row)
        QCOMPARE(vertical->stretch(row), 1);
    QCOMPARE(part<QPushButton>(&w, "extraPb")->minimumSize(), QSize(32, 32));
    QCOMPARE(part<QPushButton>(&w, "extraPb")->sizePolicy().horizontalPolicy(),
             QSizePolicy::Minimum);
    auto *label = part<QLabel>(&w, "extraLbl");
    QVERIFY(!label->isEnabled() && label->wordWrap() && label->isHidden());
    QCOMPARE(part<QCheckBox>(&w, "controlChB")->text(), QStringLiteral("Long name"));
    QCOMPARE(part<QCheckBox>(&w, "controlChB")->toolTip(), QStringLiteral("Tip"));
}

void TestSwitchWidget::behaviour_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("actions");
    QTest::addColumn<QString>("log");

    // Actions: click, check0/1 (setChecked), force0/1 (setCheckedForced), reset, slave,
    // rebootEF (setRebootCase), reboot? (needReboot), disable/enable (setControlEnabled),
    // gray/ungray, enabled? (check box and button), button (click it), button?, extra:TEXT,
    // label?, height? (whether the minimum height grew since the last look)
    const auto row = [](const char *name, const char *id, const char *actions, const char *log) {
        QTest::newRow(name) << id << actions << log;
    };
    row("clicking on and off again", "2", "click click", "needApply(true) needApply(false)");
    row("applied state is the one compared with", "2", "check1 click click",
        "needApply(true) needApply(false)");
    row("master switched on asks for its slave first", "2", "slave click click",
        "forceCheckSlave(true) needApply(true) needApply(false)");
    row("forcing a change keeps the loaded state", "2", "force1 click",
        "needApply(true) needApply(false)");
    row("forcing a loaded switch off", "2", "check1 force0 click",
        "needApply(true) needApply(false)");
    row("forcing the loaded state is silent", "2", "check1 force1 reboot?", "reboot=false");
    row("reset is silent and makes unchecked the loaded state", "2", "check1 reset click",
        "needApply(true)");
    row("reboot only after switching on", "2", "reboot10 click reboot? check1 click reboot?",
        "needApply(true) reboot=true needApply(true) reboot=false");
    row("reboot after switching off", "2", "reboot01 check1 click reboot?",
        "needApply(true) reboot=true");
    row("unchanged never needs a reboot", "2", "reboot11 check1 reboot?", "reboot=false");
    row("gray switch stays disabled", "10",
        "disable enabled? enable enabled? gray enabled? enable enabled? ungray enabled? enable "
        "enabled?",
        "enabled=00 enabled=11 enabled=01 enabled=01 enabled=01 enabled=11");
    row("other switch has no button", "2", "button? height?", "button=hidden height=same");
    row("id compared as text", "10.0", "button?", "button=hidden");
    row("console group management", "1", "button? height? button",
        "button=Open orvel-console group management height=taller extraButtonClicked");
    row("firewall rules", "10", "button? height?", "button=Edit firewall rules height=taller");
    row("shutdown lock", "12", "button?", "button=Configure shutdown lock");
    row("extra text shown, empty text ignored", "2",
        "extra: label? height? extra:After_login label? height?",
        "label=hidden height=same label=After login height=taller");
}

void TestSwitchWidget::behaviour()
{
    QFETCH(QString, id);
    QFETCH(QString, actions);
    QFETCH(QString, log);

    SwitchWidget w(id, "name", "Long name", "Tip", "script.sh");
    auto *check = part<QCheckBox>(&w, "controlChB");
    auto *button = part<QPushButton>(&w, "extraPb");
    auto *label = part<QLabel>(&w, "extraLbl");
    QStringList seen;
    connect(&w, &SwitchWidget::needApply, this,
            [&](bool b) { seen << "needApply(" + yesNo(b) + ')'; });
    connect(&w, &SwitchWidget::forceCheckSlave, this,
            [&](bool b) { seen << "forceCheckSlave(" + yesNo(b) + ')'; });
    connect(&w, &SwitchWidget::extraButtonClicked, this, [&] { seen << "extraButtonClicked"; });

    int height = 25;
    for (const QString &action : actions.split(' ', Qt::SkipEmptyParts)) {
        if (action == "click")
            check->click();
        else if (action.startsWith("check"))
            w.setChecked(action.endsWith('1'));
        else if (action.startsWith("force"))
            w.setCheckedForced(action.endsWith('1'));
        else if (action == "reset")
            w.reset();
        else if (action == "slave")
            w.setSlaveId("7");
        else if (action == "reboot?")
            seen << "reboot=" + yesNo(w.needReboot());
        else if (action.startsWith("reboot"))
            w.setRebootCase(action.at(6) == '1', action.at(7) == '1');
        else if (action == "disable" || action == "enable")
            w.setControlEnabled(action == "enable");
        else if (action == "gray" || action == "ungray")
            w.setGrayState(action == "gray");
        else if (action == "enabled?")
            seen << QStringLiteral("enabled=%1%2")
                        .arg(int(check->isEnabled()))
                        .arg(int(button->isEnabled()));
        else if (action == "button")
            QTest::mouseClick(button, Qt::LeftButton);
        else if (action == "button?")
            seen << "button=" + (button->isHidden() ? QStringLiteral("hidden") : button->text());
        else if (action.startsWith("extra:"))
            w.setExtraText(action.mid(6).replace('_', ' '));
        else if (action == "label?")
            seen << "label=" + (label->isHidden() ? QStringLiteral("hidden") : label->text());
        else if (action == "height?") {
            seen << (w.minimumHeight() > height ? "height=taller" : "height=same");
            height = w.minimumHeight();
        } else
            QFAIL(qPrintable("unknown action " + action));
    }
    QCOMPARE(seen.join(' '), log);
    QVERIFY(!check->signalsBlocked());
}

void TestSwitchWidget::builder_data()
{
    QTest::addColumn<QStringList>("fields"); // id name longName script, then key=value extras
    QTest::addColumn<QString>("widget"); // empty: null

    const auto row = [](const char *name, const char *fields, const char *widget) {
        QTest::newRow(name) << QString(fields).split(' ') << widget;
    };
    row("every field", "12 lock Shutdown lock.sh tip=t extra=e slave=3 console gray reboot",
        "12 lock.sh Shutdown t e slave=3 Console gray reboot");
    row("required fields only", "5 n L s", "5 s L System");
    row("no id", "- n L s", "");
    row("no name", "5 - L s", "");
    row("no long name", "5 n - s", "");
    row("no script", "5 n L -", "");
}

void TestSwitchWidget::builder()
{
    QFETCH(QStringList, fields);
    QFETCH(QString, widget);

    const auto orEmpty = [](const QString &s) {
        return s == "-" ? QString() : s;
    };
    const auto build = [&](SwitchWidgetBuilder &builder) {
        builder.setId(orEmpty(fields[0]));
        builder.setName(orEmpty(fields[1]));
        builder.setLongName(orEmpty(fields[2]));
        builder.setScript(orEmpty(fields[3]));
        for (const QString &extra : fields.mid(4)) {
            if (extra.startsWith("tip="))
                builder.setTooltip(extra.mid(4));
            else if (extra.startsWith("extra="))
                builder.setExtraText(extra.mid(6));
            else if (extra.startsWith("slave="))
                builder.setSlave(extra.mid(6));
            else if (extra == "console")
                builder.setGroup(SwitchGroup::Console);
            else if (extra == "gray")
                builder.setGray(true);
            else if (extra == "reboot")
                builder.setRebootCase(true, false);
        }
    };
    const auto describe = [](SwitchWidget *w) {
        auto *check = part<QCheckBox>(w, "controlChB");
        auto *label = part<QLabel>(w, "extraLbl");
        w->setCheckedForced(true);
        QStringList parts {w->getId(),
                           w->getScript(),
                           check->text(),
                           check->toolTip(),
                           label->isHidden() ? QString() : label->text(),
                           w->haveSlave() ? "slave=" + w->getSlaveId() : QString(),
                           w->getGroup() == SwitchGroup::Console ? "Console" : "System",
                           check->isEnabled() ? QString() : "gray",
                           w->needReboot() ? "reboot" : QString()};
        parts.removeAll(QString());
        return parts.join(' ');
    };

    SwitchWidgetBuilder builder;
    build(builder);
    if (widget.isEmpty())
        builder.setSlave("9");
    std::unique_ptr<SwitchWidget> w(builder.buildAndClear());
    if (widget.isEmpty()) {
        QVERIFY(!w);
        // The fields were kept: supplying only the missing one is enough.
        builder.setId("5");
        builder.setName("n");
        builder.setLongName("L");
        builder.setScript("s");
        w.reset(builder.buildAndClear());
        QVERIFY(w);
        QCOMPARE(w->getSlaveId(), QStringLiteral("9"));
        return;
    }
    QVERIFY(w);
    QVERIFY(!w->parent());
    QCOMPARE(describe(w.get()), widget);

    // Cleared: a bare switch built next carries nothing over.
    builder.setId("6");
    builder.setName("n");
    builder.setLongName("L");
    builder.setScript("s");
    std::unique_ptr<SwitchWidget> next(builder.buildAndClear());
    QVERIFY(next);
    QCOMPARE(describe(next.get()), QStringLiteral("6 s L System"));
}

QTEST_MAIN(TestSwitchWidget)

#include "tst_switchwidget.moc"
