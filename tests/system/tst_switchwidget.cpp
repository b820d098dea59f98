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

QCheckBox *checkBox(SwitchWidget *w)
{
    return w->findChild<QCheckBox *>(QStringLiteral("controlChB"));
}

QPushButton *button(SwitchWidget *w)
{
    return w->findChild<QPushButton *>(QStringLiteral("extraPb"));
}

QLabel *label(SwitchWidget *w)
{
    return w->findChild<QLabel *>(QStringLiteral("extraLbl"));
}

// Records the widget's signals in the order they come.
QStringList *recordSignals(SwitchWidget *w)
{
    auto *log = new QStringList;
    QObject::connect(w, &SwitchWidget::needApply, w, [log](bool b) {
        *log << QStringLiteral("needApply(%1)").arg(b ? "true" : "false");
    });
    QObject::connect(w, &SwitchWidget::forceCheckSlave, w, [log](bool b) {
        *log << QStringLiteral("forceCheckSlave(%1)").arg(b ? "true" : "false");
    });
    QObject::connect(w, &SwitchWidget::extraButtonClicked, w,
                     [log] { *log << QStringLiteral("extraButtonClicked"); });
    QObject::connect(w, &QObject::destroyed, [log] { delete log; });
    return log;
}

std::unique_ptr<SwitchWidget> makeWidget(const QString &id = QStringLiteral("2"))
{
    return std::make_unique<SwitchWidget>(id, QStringLiteral("name"), QStringLiteral("Long name"),
                                          QStringLiteral("Tip"), QStringLiteral("script.sh"));
}

} // namespace

class TestSwitchWidget : public QObject
{
    Q_OBJECT

private slots:
    void form();
    void extraButton_data();
    void extraButton();
    void clicksReportWhetherApplyIsNeeded();
    void masterSwitchedOnAsksForSlaveFirst();
    void setCheckedForced_data();
    void setCheckedForced();
    void resetIsSilent();
    void graySwitchStaysDisabled();
    void needReboot_data();
    void needReboot();
    void extraText();

    void builderBuildsAndClears();
    void builderKeepsFieldsWhenIncomplete_data();
    void builderKeepsFieldsWhenIncomplete();
};

void TestSwitchWidget::form()
{
    auto w = makeWidget();
    QCOMPARE(w->size(), QSize(312, 102));
    QCOMPARE(w->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
    QCOMPARE(w->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    QCOMPARE(w->minimumSize(), QSize(0, 25));
    QVERIFY(w->findChild<QHBoxLayout *>(QStringLiteral("horizontalLayout_2")));
    auto *vertical = w->findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
    QVERIFY(vertical);
    QCOMPARE(vertical->stretch(0), 1);
    QCOMPARE(vertical->stretch(1), 1);
    QCOMPARE(vertical->stretch(2), 1);
    QVERIFY(w->findChild<QHBoxLayout *>(QStringLiteral("horizontalLayout")));
    QCOMPARE(button(w.get())->minimumSize(), QSize(32, 32));
    QVERIFY(!label(w.get())->isEnabled());
    QVERIFY(label(w.get())->wordWrap());

    QCOMPARE(checkBox(w.get())->text(), QStringLiteral("Long name"));
    QCOMPARE(checkBox(w.get())->toolTip(), QStringLiteral("Tip"));
    QVERIFY(label(w.get())->isHidden());
    QCOMPARE(w->getId(), QStringLiteral("2"));
    QCOMPARE(w->getScript(), QStringLiteral("script.sh"));
    QCOMPARE(w->getGroup(), SwitchGroup::System);
    QVERIFY(!w->haveSlave());
}

void TestSwitchWidget::extraButton_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("text"); // empty: no button

    QTest::newRow("console group management") << "1"
                                              << "Open orvel-console group management";
    QTest::newRow("firewall rules") << "10"
                                    << "Edit firewall rules";
    QTest::newRow("shutdown lock") << "12"
                                   << "Configure shutdown lock";
    QTest::newRow("other switch has none") << "2" << QString();
    QTest::newRow("id compared as text") << "10.0" << QString();
}

void TestSwitchWidget::extraButton()
{
    QFETCH(QString, id);
    QFETCH(QString, text);

    auto plain = makeWidget(QStringLiteral("2"));
    auto w = makeWidget(id);
    QStringList *log = recordSignals(w.get());
    QCOMPARE(button(w.get())->isHidden(), text.isEmpty());
    if (text.isEmpty())
        return;
    QCOMPARE(button(w.get())->text(), text);
    // Room for the button row comes on top of the form's own minimum.
    QVERIFY(w->minimumHeight() >= plain->minimumHeight() + 32);
    QTest::mouseClick(button(w.get()), Qt::LeftButton);
    QCOMPARE(*log, QStringList {"extraButtonClicked"});
}

void TestSwitchWidget::clicksReportWhetherApplyIsNeeded()
{
    auto w = makeWidget();
    QStringList *log = recordSignals(w.get());
    checkBox(w.get())->click();
    QVERIFY(w->isChecked());
    checkBox(w.get())->click();
    QCOMPARE(*log, (QStringList {"needApply(true)", "needApply(false)"}));

    // Once applied, the new state is the one compared with.
    log->clear();
    w->setChecked(true);
    QVERIFY(log->isEmpty());
    checkBox(w.get())->click();
    checkBox(w.get())->click();
    QCOMPARE(*log, (QStringList {"needApply(true)", "needApply(false)"}));
}

void TestSwitchWidget::masterSwitchedOnAsksForSlaveFirst()
{
    auto w = makeWidget();
    w->setSlaveId(QStringLiteral("7"));
    QVERIFY(w->haveSlave());
    QCOMPARE(w->getSlaveId(), QStringLiteral("7"));
    QStringList *log = recordSignals(w.get());

    checkBox(w.get())->click();
    checkBox(w.get())->click();
    QCOMPARE(*log, (QStringList {"forceCheckSlave(true)", "needApply(true)", "needApply(false)"}));
}

void TestSwitchWidget::setCheckedForced_data()
{
    QTest::addColumn<bool>("initial");
    QTest::addColumn<bool>("forced");
    QTest::addColumn<QStringList>("signalLog");

    QTest::newRow("differs from loaded state") << false << true << QStringList {"needApply(true)"};
    QTest::newRow("unchecking a loaded switch") << true << false << QStringList {"needApply(true)"};
    QTest::newRow("same as loaded state") << true << true << QStringList();
}

void TestSwitchWidget::setCheckedForced()
{
    QFETCH(bool, initial);
    QFETCH(bool, forced);
    QFETCH(QStringList, signalLog);

    auto w = makeWidget();
    w->setChecked(initial);
    QStringList *log = recordSignals(w.get());
    w->setCheckedForced(forced);
    QCOMPARE(*log, signalLog);
    QCOMPARE(w->isChecked(), forced);
    // The loaded state is kept: clicking back reports nothing left to apply.
    log->clear();
    checkBox(w.get())->click();
    QCOMPARE(
        *log,
        QStringList {QStringLiteral("needApply(%1)").arg(!forced != initial ? "true" : "false")});
}

void TestSwitchWidget::resetIsSilent()
{
    auto w = makeWidget();
    w->setChecked(true);
    QSignalSpy toggled(checkBox(w.get()), &QCheckBox::toggled);
    w->reset();
    QVERIFY(!w->isChecked());
    QCOMPARE(toggled.count(), 0);
    QVERIFY(!checkBox(w.get())->signalsBlocked());
    QVERIFY(!w->needReboot());
}

void TestSwitchWidget::graySwitchStaysDisabled()
{
    auto w = makeWidget(QStringLiteral("10"));
    w->setControlEnabled(false);
    QVERIFY(!checkBox(w.get())->isEnabled());
    QVERIFY(!button(w.get())->isEnabled());
    w->setControlEnabled(true);
    QVERIFY(checkBox(w.get())->isEnabled());

    w->setGrayState(true);
    QVERIFY(!checkBox(w.get())->isEnabled());
    w->setControlEnabled(true);
    QVERIFY(!checkBox(w.get())->isEnabled());
    w->setGrayState(false);
    QVERIFY(!checkBox(w.get())->isEnabled());
    w->setControlEnabled(true);
    QVERIFY(checkBox(w.get())->isEnabled());
}

void TestSwitchWidget::needReboot_data()
{
    QTest::addColumn<bool>("enable");
    QTest::addColumn<bool>("disable");
    QTest::addColumn<bool>("initial");
    QTest::addColumn<bool>("now");
    QTest::addColumn<bool>("reboot");

    QTest::newRow("switched on, on needs reboot") << true << false << false << true << true;
    QTest::newRow("switched off, only on needs reboot") << true << false << true << false << false;
    QTest::newRow("switched off, off needs reboot") << false << true << true << false << true;
    QTest::newRow("unchanged never needs reboot") << true << true << true << true << false;
}

void TestSwitchWidget::needReboot()
{
    QFETCH(bool, enable);
    QFETCH(bool, disable);
    QFETCH(bool, initial);
    QFETCH(bool, now);
    QFETCH(bool, reboot);

    auto w = makeWidget();
    w->setRebootCase(enable, disable);
    w->setChecked(initial);
    w->setCheckedForced(now);
    QCOMPARE(w->needReboot(), reboot);
}

void TestSwitchWidget::extraText()
{
    auto w = makeWidget();
    const int before = w->minimumHeight();
    w->setExtraText(QString());
    QVERIFY(label(w.get())->isHidden());
    QCOMPARE(w->minimumHeight(), before);

    w->setExtraText(QStringLiteral("Takes effect after the next login"));
    QVERIFY(!label(w.get())->isHidden());
    QCOMPARE(label(w.get())->text(), QStringLiteral("Takes effect after the next login"));
    QVERIFY(w->minimumHeight() > before);
}

void TestSwitchWidget::builderBuildsAndClears()
{
    SwitchWidgetBuilder builder;
    builder.setId(QStringLiteral("12"));
    builder.setName(QStringLiteral("lock"));
    builder.setLongName(QStringLiteral("Shutdown lock"));
    builder.setTooltip(QStringLiteral("tip"));
    builder.setScript(QStringLiteral("lock.sh"));
    builder.setExtraText(QStringLiteral("extra"));
    builder.setSlave(QStringLiteral("3"));
    builder.setGroup(SwitchGroup::Console);
    builder.setGray(true);
    builder.setRebootCase(true, false);

    std::unique_ptr<SwitchWidget> w(builder.buildAndClear());
    QVERIFY(w);
    QVERIFY(!w->parent());
    QCOMPARE(w->getId(), QStringLiteral("12"));
    QCOMPARE(w->getScript(), QStringLiteral("lock.sh"));
    QCOMPARE(checkBox(w.get())->text(), QStringLiteral("Shutdown lock"));
    QCOMPARE(checkBox(w.get())->toolTip(), QStringLiteral("tip"));
    QCOMPARE(label(w.get())->text(), QStringLiteral("extra"));
    QCOMPARE(w->getSlaveId(), QStringLiteral("3"));
    QCOMPARE(w->getGroup(), SwitchGroup::Console);
    QVERIFY(!checkBox(w.get())->isEnabled());
    w->setCheckedForced(true);
    QVERIFY(w->needReboot());

    // Cleared: a bare switch built next carries nothing over.
    builder.setId(QStringLiteral("5"));
    builder.setName(QStringLiteral("n"));
    builder.setLongName(QStringLiteral("L"));
    builder.setScript(QStringLiteral("s"));
    std::unique_ptr<SwitchWidget> next(builder.buildAndClear());
    QVERIFY(next);
    QVERIFY(!next->haveSlave());
    QCOMPARE(next->getGroup(), SwitchGroup::System);
    QVERIFY(checkBox(next.get())->isEnabled());
    QVERIFY(label(next.get())->isHidden());
    QCOMPARE(checkBox(next.get())->toolTip(), QString());
    next->setCheckedForced(true);
    QVERIFY(!next->needReboot());
}

void TestSwitchWidget::builderKeepsFieldsWhenIncomplete_data()
{
    QTest::addColumn<QString>("missing");
    QTest::newRow("no id") << "id";
    QTest::newRow("no name") << "name";
    QTest::newRow("no long name") << "longName";
    QTest::newRow("no script") << "script";
}

void TestSwitchWidget::builderKeepsFieldsWhenIncomplete()
{
    QFETCH(QString, missing);

    SwitchWidgetBuilder builder;
    builder.setId(missing == "id" ? QString() : QStringLiteral("4"));
    builder.setName(missing == "name" ? QString() : QStringLiteral("n"));
    builder.setLongName(missing == "longName" ? QString() : QStringLiteral("L"));
    builder.setScript(missing == "script" ? QString() : QStringLiteral("s"));
    builder.setSlave(QStringLiteral("9"));
    QVERIFY(!builder.buildAndClear());

    // Supplying only the missing field is enough: the rest was kept.
    if (missing == "id")
        builder.setId(QStringLiteral("4"));
    else if (missing == "name")
        builder.setName(QStringLiteral("n"));
    else if (missing == "longName")
        builder.setLongName(QStringLiteral("L"));
    else
        builder.setScript(QStringLiteral("s"));
    std::unique_ptr<SwitchWidget> w(builder.buildAndClear());
    QVERIFY(w);
    QCOMPARE(w->getId(), QStringLiteral("4"));
    QCOMPARE(w->getSlaveId(), QStringLiteral("9"));
}

QTEST_MAIN(TestSwitchWidget)

#include "tst_switchwidget.moc"
