#include "widgetfixture.h"
#include "widgets/elementwidgetcontainer2.h"

#include <QDir>
#include <QSettings>
#include <QSignalSpy>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>

#include <memory>

using namespace WidgetFixture;

class tst_ElementWidgetContainer2 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-test"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_elementwidgetcontainer2"));
    }
    void init()
    {
        QSettings().clear();
        _module = std::make_unique<UsersModule>();
        _module->users->fetchMore();
        _alice = static_cast<Element *>(_module->users->childNodes().at(0));
        _alice->append(new Mailbox(*_module, "mailbox", "mail", "/var/mail/alice"));
        _container = std::make_unique<ElementWidgetContainer2>();
        _container->resize(420, 240);
        _container->show();
        QVERIFY(QTest::qWaitForWindowExposed(_container.get()));
        _module->log.clear();
    }
    void cleanup()
    {
        _container.reset();
        _module.reset();
    }

    void tabsReadWhenShownAndRelay();
    void unsavedChanges_data();
    void unsavedChanges();
    void givesWidgetsBack();
    void pictures();

private:
    QString tabs() const
    {
        QStringList titles;
        for (int i = 0; i < _container->tabWidget()->count(); ++i)
            titles << _container->tabWidget()->tabText(i);
        return titles.join(' ');
    }
    UserForm *form() const { return static_cast<UserForm *>(_module->elementWidget("user")); }

    std::unique_ptr<UsersModule> _module;
    std::unique_ptr<ElementWidgetContainer2> _container;
    Element *_alice = nullptr;
};

void tst_ElementWidgetContainer2::tabsReadWhenShownAndRelay()
{
    QSignalSpy states(_container.get(), &ElementWidgetContainer2::contentChanged);
    QVERIFY(_container->setElement(_alice));
    QCOMPARE(tabs(), QStringLiteral("alice mail Groups")); // own first, then by priority
    QCOMPARE(_module->log, QStringList {"alice:20"}); // only the tab shown reads

    QTabBar *bar = _container->tabWidget()->tabBar();
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
    QCOMPARE(_module->log, (QStringList {"alice:20", "mail:20"}));
    QCOMPARE(_container->currentElementWidget()->element()->title(), QStringLiteral("mail"));

    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
    QTest::keyClicks(form()->shell, "x");
    QCOMPARE(states.count(), 1);
    QCOMPARE(states.at(0).at(0).toInt(), 3);
}

void tst_ElementWidgetContainer2::unsavedChanges_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("shown");
    QTest::newRow("No stays with the edits") << int(QMessageBox::No) << "alice mail Groups";
    QTest::newRow("Yes moves on") << int(QMessageBox::Yes) << "bob Groups";
}

void tst_ElementWidgetContainer2::unsavedChanges()
{
    QFETCH(int, answer);
    _container->setElement(_alice);
    QTest::keyClicks(form()->shell, "x");
    QString question;
    answerNextBox(QMessageBox::StandardButton(answer), &question);
    Element *bob = static_cast<Element *>(_module->users->childNodes().at(1));
    QCOMPARE(_container->setElement(bob), answer == QMessageBox::Yes);
    QCOMPARE(question, QStringLiteral("Changes not saved!\nContinue without saving?"));
    QTEST(tabs(), "shown");
    QCOMPARE(form()->isChanged(), answer == QMessageBox::No);
    QCOMPARE(form()->shell->text().endsWith('x'), answer == QMessageBox::No);
}

void tst_ElementWidgetContainer2::givesWidgetsBack()
{
    _container->setElement(_alice);
    delete _alice;
    QCOMPARE(tabs(), QString());
    QCOMPARE(_container->element(), nullptr);
    QCOMPARE(form()->parent(), nullptr);

    // The modules own the widgets: destroying the container leaves them whole.
    _container->setElement(static_cast<Element *>(_module->users->childNodes().at(0)));
    _container.reset();
    QCOMPARE(form()->parent(), nullptr);
    QVERIFY(!form()->isVisible());
}

void tst_ElementWidgetContainer2::pictures()
{
    const QString dir = QStringLiteral(OVT_PICTURES_DIR);
    QVERIFY(QDir().mkpath(dir));
    _container->setElement(_alice);
    QVERIFY(_container->grab().save(dir + "/elementwidgetcontainer2.png"));
    _container->setElement(_module->users);
    QVERIFY(_container->grab().save(dir + "/elementselementwidget.png"));
    _container.reset();
    UserForm *form = this->form();
    form->setElement(nullptr, CreateRole);
    form->show();
    QTest::keyClicks(form->shell, "/bin/zsh");
    QVERIFY(form->grab().save(dir + "/vieweditelementwidget.png"));
}

QTEST_MAIN(tst_ElementWidgetContainer2)
#include "tst_elementwidgetcontainer2.moc"
