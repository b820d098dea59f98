#include "element/elementmodel.h"
#include "widgetfixture.h"
#include "widgets/elementtreeview.h"
#include "widgets/listwidgetproxymodel.h"

#include <QAbstractItemModelTester>
#include <QComboBox>
#include <QHeaderView>
#include <QSettings>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace WidgetFixture;

class tst_ElementWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-test"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_elementwidgets"));
    }
    void init()
    {
        QSettings().clear();
        _module = std::make_unique<UsersModule>();
        _list = static_cast<ElementsElementWidget *>(_module->elementWidget("users"));
        _form = static_cast<UserForm *>(_module->elementWidget("user"));
        _tester = std::make_unique<QAbstractItemModelTester>(
            _list->proxyModel(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    }
    void cleanup()
    {
        _tester.reset();
        _module.reset();
    }

    void listsAndOpens();
    void filter_data();
    void filter();
    void keepsViewStateInSettings();
    void readsAndUpdates();
    void creates();
    void activation_data();
    void activation();
    void forgetsDestroyedElement();

private:
    void showList()
    {
        _list->setElement(_module->users, ViewEditRole);
        _list->show();
        QVERIFY(QTest::qWaitForWindowExposed(_list));
    }
    Element *user(int row)
    {
        if (_module->users->childNodesCount() == 0)
            _module->users->fetchMore();
        return static_cast<Element *>(_module->users->childNodes().at(row));
    }
    // The logins shown, sorted: the order of the view is the user's choice.
    QString rows() const
    {
        QStringList names;
        for (int row = 0; row < _list->proxyModel()->rowCount(); ++row)
            names << _list->proxyModel()->index(row, 0).data().toString();
        names.sort();
        return names.join(' ');
    }

    std::unique_ptr<UsersModule> _module;
    std::unique_ptr<QAbstractItemModelTester> _tester;
    ElementsElementWidget *_list = nullptr;
    UserForm *_form = nullptr;
};

void tst_ElementWidgets::listsAndOpens()
{
    showList();
    QCOMPARE(rows(), QStringLiteral("a.b alice axb bob"));
    QCOMPARE(_list->proxyModel()->columnCount(), 2); // the login column is the tree's
    _list->hide();
    _list->show();
    QCOMPARE(_module->log, QStringList {"Users:8"}); // read once, shown twice

    // A double click on bob makes him current in the module's tree.
    QSignalSpy current(_module->users, &TreeNode::setCurrentNode);
    ElementTreeView *view = _list->elementTreeView();
    const QModelIndex bob = _list->proxyModel()
                                ->match(_list->proxyModel()->index(0, 0), Qt::DisplayRole, "bob")
                                .value(0);
    // A double click is a click (which selects) followed by the double-click event.
    QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(bob).center());
    QVERIFY(view->selectionModel()->isSelected(bob));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(bob).center());
    QCOMPARE(current.count(), 1);
    QCOMPARE(current.at(0).at(0).value<TreeNode *>(), user(1));
    QVERIFY(view->selectionModel()->selectedIndexes().isEmpty());
}

void tst_ElementWidgets::filter_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("shown");
    QTest::newRow("wildcard searches every shown column") << 0 << "*ash"
                                                          << "alice axb";
    QTest::newRow("fixed string: a dot is a dot") << 2 << "a.b"
                                                  << "a.b";
    QTest::newRow("regexp: a dot is any character") << 1 << "a.b"
                                                    << "a.b axb";
    QTest::newRow("unfinished regexp hides nothing") << 1 << "(a"
                                                     << "a.b alice axb bob";
    QTest::newRow("case does not matter") << 2 << "NOLOGIN"
                                          << "bob";
    QTest::newRow("no match") << 0 << "zsh"
                              << "";
}

void tst_ElementWidgets::filter()
{
    QFETCH(int, type);
    QFETCH(QString, pattern);
    showList();
    for (int i = 0; i < type; ++i)
        QTest::keyClick(_list->patternTypeComboBox(), Qt::Key_Down);
    QTest::keyClicks(_list->patternLineEdit(), pattern);
    QTEST(rows(), "shown");
}

void tst_ElementWidgets::keepsViewStateInSettings()
{
    QSettings().setValue("elementsElementWidget/usersFilterType", 2);
    QSettings().setValue("elementsElementWidget/usersFilterValue", "a.b");
    showList();
    QCOMPARE(_list->patternTypeComboBox()->currentIndex(), 2);
    QCOMPARE(rows(), QStringLiteral("a.b"));

    // The user sorts by shell and types another filter; hiding keeps both.
    QHeaderView *header = _list->elementTreeView()->header();
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(1) + 4, header->height() / 2));
    QTest::keyClick(_list->patternTypeComboBox(), Qt::Key_Up);
    _list->patternLineEdit()->clear();
    QTest::keyClicks(_list->patternLineEdit(), "bo");
    _list->hide();
    QCOMPARE(QSettings().value("elementsElementWidget/usersFilterType").toInt(), 1);
    QCOMPARE(QSettings().value("elementsElementWidget/usersFilterValue").toString(), "bo");

    ElementsElementWidget again(QStringLiteral("users"), *_module, &Module::defaultTrue);
    again.setElement(_module->users, ViewEditRole);
    again.show();
    QCOMPARE(again.elementTreeView()->header()->sortIndicatorSection(), 1);
    QCOMPARE(again.patternLineEdit()->text(), QStringLiteral("bo"));
    QCOMPARE(again.proxyModel()->rowCount(), 1);
}

void tst_ElementWidgets::readsAndUpdates()
{
    QSignalSpy states(_form, &ViewEditElementWidget::contentChanged);
    _form->setElement(user(0), ViewEditRole);
    _form->show();
    QCOMPARE(_form->shell->text(), QStringLiteral("/bin/bash"));
    QVERIFY(_form->isEnabled());
    QTest::keyClicks(_form->shell, "x");
    QTest::mouseClick(_form->apply, Qt::LeftButton);
    QCOMPARE(_module->log.mid(1), (QStringList {"alice:20", "alice:40"}));
    QCOMPARE(user(0)->elementData()->value("shell").toString(), QStringLiteral("/bin/bashx"));
    QCOMPARE(states.count(), 2);
    QCOMPARE(states.at(0).at(0).toInt() * 10 + states.at(1).at(0).toInt(), 30);
}

void tst_ElementWidgets::creates()
{
    QSignalSpy states(_form, &ViewEditElementWidget::contentChanged);
    _form->setElement(nullptr, CreateRole);
    _form->show();
    QVERIFY(_form->isEnabled());
    QTest::keyClicks(_form->shell, "carol");
    QTest::mouseClick(_form->apply, Qt::LeftButton);
    QCOMPARE(_module->log, QStringList {"widget:4"});
    QCOMPARE(static_cast<Element *>(_module->users->childNodes().value(0))->title(), "carol");
    QList<int> seen;
    for (const QList<QVariant> &state : qAsConst(states)) {
        if (seen.value(seen.size() - 1, -1) != state.at(0).toInt()) // one per keystroke
            seen << state.at(0).toInt();
    }
    QCOMPARE(seen, (QList<int> {2, 3, 0}));
}

void tst_ElementWidgets::activation_data()
{
    QTest::addColumn<quint64>("offers");
    QTest::addColumn<bool>("edited");
    QTest::addColumn<int>("answer");
    QTest::addColumn<QString>("question");
    QTest::addColumn<bool>("activated");
    const QString unsaved = QStringLiteral("Changes not saved!\nContinue without saving?");
    QTest::newRow("display variants without display change are refused")
        << quint64(LoginOperation2) << false << int(QMessageBox::Ok)
        << "Activation of this element not supported!" << false;
    QTest::newRow("No keeps the edits")
        << quint64(0) << true << int(QMessageBox::No) << unsaved << false;
    QTest::newRow("Yes drops the edits")
        << quint64(0) << true << int(QMessageBox::Yes) << unsaved << true;
    QTest::newRow("display change goes to the module, which owns its record")
        << quint64(ChangeDisplayOperation) << false << 0 << QString() << true;
}

void tst_ElementWidgets::activation()
{
    QFETCH(quint64, offers);
    QFETCH(int, answer);
    QFETCH(bool, activated);
    _form->setElement(user(0), ViewEditRole);
    _form->show();
    QFETCH(bool, edited);
    if (edited)
        QTest::keyClicks(_form->shell, "x");
    auto *target = new User(*_module, "user", "target", {}, OperationType(offers));
    QSignalSpy current(target, &TreeNode::setCurrentNode);
    QString question;
    if (answer)
        answerNextBox(QMessageBox::StandardButton(answer), &question);
    _form->setTreeNodeCurrent(target);
    QTEST(question, "question");
    QCOMPARE(current.count(), int(activated));
    QCOMPARE(_form->isChanged(), edited); // until the tree shows the form another element
    QCOMPARE(_form->shell->text(), QString(edited ? "/bin/bashx" : "/bin/bash"));
    QCOMPARE(_module->log.last(),
             QString(offers == ChangeDisplayOperation ? "target:800" : "alice:20"));
}

void tst_ElementWidgets::forgetsDestroyedElement()
{
    _form->setElement(user(0), ViewEditRole);
    delete user(0);
    QCOMPARE(_form->element(), nullptr);
    QCOMPARE(_form->caption(), QString());

    showList();
    delete _module->users;
    _module->users = nullptr;
    QCOMPARE(_list->element(), nullptr);
    QCOMPARE(_list->elementModel()->rootNode(), nullptr);
    QCOMPARE(_list->proxyModel()->rowCount(), 0);
}

QTEST_MAIN(tst_ElementWidgets)
#include "tst_elementwidgets.moc"
