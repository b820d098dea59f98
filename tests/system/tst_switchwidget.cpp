// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/switchwidget.h"
#include "treestring.h"

#include <QtTest>
#include <QtWidgets>

using namespace OvtTest;

class TestSwitchWidget : public QObject
{
    Q_OBJECT

private slots:
    void behaviour_data()
    {
        // The id; the actions: click, check0/1 (setChecked), force0/1 (setCheckedForced), reset,
        // slave, rebootEF (setRebootCase), reboot? (needReboot), enable0/1 (setControlEnabled),
        // gray0/1, enabled? (check box and button), button (click it), button? (its text),
        // extra:TEXT (then the label's); the log.
        table();
        row("click on and off", "2; click click; apply(1) apply(0)");
        row("loaded state compared", "2; check1 click click; apply(1) apply(0)");
        row("master on asks for its slave", "2; slave click click; slave(1) apply(1) apply(0)");
        row("forcing a change", "2; force1 click; apply(1) apply(0)");
        row("forcing the loaded state is silent", "2; check1 force1 reboot?; reboot=0");
        row("reset is silent, unchecked loaded", "2; check1 reset click; apply(1)");
        row("reboot only after switching on",
            "2; reboot10 click reboot? check1 click reboot?; apply(1) reboot=1 apply(1) reboot=0");
        row("reboot only after switching off, unchanged never",
            "2; reboot01 reboot? check1 click reboot?; reboot=0 apply(1) reboot=1");
        row("gray stays disabled",
            "10; enable0 enabled? enable1 enabled? gray1 enabled? enable1 enabled? gray0 enabled? "
            "enable1 enabled?; enabled=00 enabled=11 enabled=01 enabled=01 enabled=01 enabled=11");
        row("no button, id compared as text", "10.0; button?; button=hidden");
        row("console group management",
            "1; button? button; button=Open orvel-console group management extra");
        row("extra text, empty ignored",
            "2; extra: extra:After_login; label=hidden label=After login");
    }

    void behaviour()
    {
        const auto [id, actions, log] = fields<3>();
        SwitchWidget w(id, "name", "Long name", "Tip", "script.sh");
        auto *check = w.findChild<QCheckBox *>("controlChB");
        auto *button = w.findChild<QPushButton *>("extraPb");
        auto *label = w.findChild<QLabel *>("extraLbl");
        QStringList seen;
        connect(&w, &SwitchWidget::needApply, [&](bool b) { seen << QString("apply(%1)").arg(b); });
        connect(&w, &SwitchWidget::forceCheckSlave,
                [&](bool b) { seen << QString("slave(%1)").arg(b); });
        connect(&w, &SwitchWidget::extraButtonClicked, [&] { seen << "extra"; });
        const auto shown = [](QWidget *part, const QString &text) {
            return part->isHidden() ? "hidden" : text;
        };
        for (QString action : words(actions)) {
            const bool on = action.endsWith('1');
            if (action == "click")
                check->click();
            else if (action.startsWith("check"))
                w.setChecked(on);
            else if (action.startsWith("force"))
                w.setCheckedForced(on);
            else if (action == "reset")
                w.reset();
            else if (action == "slave")
                w.setSlaveId("7");
            else if (action == "reboot?")
                seen << QString("reboot=%1").arg(w.needReboot());
            else if (action.startsWith("reboot"))
                w.setRebootCase(action.at(6) == '1', on);
            else if (action == "enabled?")
                seen << QString("enabled=%1%2").arg(check->isEnabled()).arg(button->isEnabled());
            else if (action.startsWith("enable"))
                w.setControlEnabled(on);
            else if (action.startsWith("gray"))
                w.setGrayState(on);
            else if (action == "button")
                QTest::mouseClick(button, Qt::LeftButton);
            else if (action == "button?")
                seen << "button=" + shown(button, button->text());
            else if (action.startsWith("extra:")) {
                w.setExtraText(action.mid(6).replace('_', ' '));
                seen << "label=" + shown(label, label->text());
            }
        }
        QCOMPARE(seen.join(' '), log);
        QVERIFY(!check->signalsBlocked());
    }
};

QTEST_MAIN(TestSwitchWidget)

#include "tst_switchwidget.moc"
