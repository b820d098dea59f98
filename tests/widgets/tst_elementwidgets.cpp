// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "element/containerelement.h"
#include "element/elementdata.h"
#include "element/elementmodel.h"
#include "element/ordinaryelement.h"
#include "element/supplementelement.h"
#include "plugin/module.h"
#include "treestring.h"
#include "widgets/elementtreeview.h"
#include "widgets/elementwidgetcontainer2.h"
#include "widgets/listwidgetproxymodel.h"
#include "widgets/nodeselementwidget.h"
#include "widgets/supplementelementselementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

namespace {
// A module as a plug-in writes one. Operations are answered at once, as its tasks would after
// their run, and logged as "<title or widget>:<operation in hex>".

// Kinds of users: title in columns 0 and 1, the shell in column 2.
template<typename Kind> class Item : public Kind
{
public:
    Item(Module &module, const char *type, const QString &title, const QString &shell = {},
         OperationType extra = NoOperation)
        : Kind(module, &Module::defaultTrue)
        , _extra(extra)
    {
        this->_elementType = QLatin1String(type);
        this->setTitle(title);
        this->_elementData = new ElementData;
        this->_elementData->setName(shell); // the record's name is the shell here
    }
    QString caption() const override { return QStringLiteral("User ") + this->_title; }
    int columnCount() const override { return 3; }
    QVariant data(int column, int role) const override
    {
        if (role == Qt::DisplayRole && column > 0)
            return column == 1 ? this->_title : this->_elementData->name();
        return Kind::data(column, role);
    }
    OperationType availableOperations() const override
    {
        return Kind::availableOperations() | _extra;
    }
    void performOperation(OperationType type, ElementData *data, int alternative) override
    {
        if (type & _extra)
            return this->module().performOperation(this, type, data, alternative);
        Kind::performOperation(type, data, alternative);
    }
    QStringList displayChildrenVariants() const override // LoginOperation2: no display change
    {
        return _extra & (ChangeDisplayOperation | LoginOperation2) ? QStringList {"a", "b"}
                                                                   : QStringList();
    }

private:
    const OperationType _extra;
};
using Users = Item<ContainerElement>;
using User = Item<OrdinaryElement>;
using Mailbox = Item<SupplementElement>;

class UserForm : public ViewEditElementWidget
{
public:
    explicit UserForm(Module &module, const char *type = "user", int priority = 500,
                      const char *beside = "Undefined")
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QLatin1String(type);
        _priority = priority;
        _supplementElementWidgetType = QLatin1String(beside);
        auto *layout = new QGridLayout(this);
        layout->addWidget(shell = new QLineEdit(this), 0, 0);
        layout->addWidget(apply = new QPushButton(QStringLiteral("Apply"), this), 0, 1);
        connect(shell, &QLineEdit::textEdited, this, &ViewEditElementWidget::changeContent);
        connect(apply, &QPushButton::clicked, this, &ViewEditElementWidget::applyContentChanges);
    }
    ElementData *exportElementData() const override
    {
        auto *data = new ElementData;
        data->setName(shell->text());
        return data;
    }
    void afterSuccessfulRead(Element *element, ElementData *data) override
    {
        shell->setText(data->name());
        ViewEditElementWidget::afterSuccessfulRead(element, data);
    }
    QLineEdit *shell;
    QPushButton *apply;
};

class UsersModule : public Module
{
public:
    UsersModule()
        : Module(QStringLiteral("users"), nullptr, false)
    {
        insertElementWidget(
            new ElementsElementWidget(QStringLiteral("users"), *this, &Module::defaultTrue));
        insertElementWidget(new UserForm(*this, "user", 500, "groups"));
        insertElementWidget(new UserForm(*this, "mailbox", 100));
        insertElementWidget(new SupplementElementsElementWidget(
            QStringLiteral("groups"), QStringLiteral("Groups"), *this, &Module::defaultTrue));
        users = new Users(*this, "users", QStringLiteral("Users"));
    }
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int) override
    {
        if (type == InsertedOperation || type == RemovedOperation)
            return; // tree notifications, not the user's
        Element *element = context->elementContext();
        log << QStringLiteral("%1:%2")
                   .arg(element ? element->title() : QStringLiteral("widget"))
                   .arg(quint64(type), 0, 16);
        auto *form = dynamic_cast<UserForm *>(
            elementWidget(element ? element->elementType() : QStringLiteral("user")));
        if (type == ReadContentOperation) {
            for (QString name :
                 {"alice:/bin/bash", "bob:/usr/sbin/nologin", "a.b:/bin/sh", "axb:/bin/dash"})
                element->append(
                    new User(*this, "user", name.section(':', 0, 0), name.section(':', 1)));
        } else if (type == ReadOperation) {
            form->afterSuccessfulRead(element, element->elementData());
        } else if (type == UpdateOperation) {
            element->elementData()->setName(data->name());
            element->emitNodeDataChanged();
            form->setUnchanged();
        } else if (type == CreateOperation) {
            users->append(new User(*this, "user", data->name(), "/bin/sh"));
            form->setUnchanged();
        }
        delete data; // owned here, as a task owns the record it is given
    }
    Users *users;
    QStringList log;
};

// Answers the next message box with @p button and keeps its text.
inline void answerNextBox(QMessageBox::StandardButton button, QString *text)
{
    QTimer::singleShot(0, [=] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        box ? *text = box->text(), box->button(button)->click() : answerNextBox(button, text);
    });
}

} // namespace

class tst_ElementWidgets : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        QCoreApplication::setOrganizationName(QStringLiteral("ovt-test"));
        QCoreApplication::setApplicationName(QStringLiteral("tst_elementwidgets"));
        _module.reset(); // a shown list saves its settings as it goes
        QSettings().clear();
        _module = std::make_unique<UsersModule>();
        _list = static_cast<ElementsElementWidget *>(_module->elementWidget("users"));
        _form = static_cast<UserForm *>(_module->elementWidget("user"));
        OvtTest::watch(_list->proxyModel());
    }
    void listsAndOpens()
    {
        showList();
        QCOMPARE(rows(), QStringLiteral("[a.b alice axb bob]"));
        QCOMPARE(_module->log, QStringList {"Users:8"});

        QSignalSpy current(_module->users, &TreeNode::setCurrentNode);
        ElementTreeView *view = _list->elementTreeView();
        const QModelIndex bob = _list->proxyModel()->index(3, 0);
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(bob).center());
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, view->visualRect(bob).center());
        QVERIFY(current.count() == 1 && current.at(0).at(0).value<TreeNode *>() == user(1));
        QVERIFY(view->selectionModel()->selectedIndexes().isEmpty());

        NodesElementWidget nodes(QStringLiteral("users"), *_module, &Module::defaultTrue);
        OvtTest::watch(nodes.proxyModel());
        nodes.setElement(_module->users, ViewEditRole), nodes.show(); // the tree's order kept
        QCOMPARE(OvtTest::modelToString(nodes.proxyModel()), QStringLiteral("[alice bob a.b axb]"));
    }
    void filter_data()
    {
        OvtTest::table(); // pattern type; pattern; the logins shown
        OvtTest::row("wildcard searches every shown column", "0; *ash; alice axb");
        OvtTest::row("fixed string: no wildcard or regexp", "2; a.*; ");
        OvtTest::row("regexp: a dot is any character", "1; a.b; a.b axb");
    }
    void filter()
    {
        const auto [type, pattern, shown] = OvtTest::fields<3>();
        showList();
        _list->patternTypeComboBox()->setCurrentIndex(type.toInt());
        QTest::keyClicks(_list->patternLineEdit(), pattern);
        QCOMPARE(rows(), "[" + shown + "]");
        _list->hide(); // keeps pattern and type; shown again, it filters the same
        QCOMPARE(QSettings().value("elementsElementWidget/usersFilterType").toString() + ' '
                     + QSettings().value("elementsElementWidget/usersFilterValue").toString(),
                 type + ' ' + pattern);
        _list->patternLineEdit()->clear();
        _list->patternTypeComboBox()->setCurrentIndex(0);
        _list->show();
        QCOMPARE(rows(), "[" + shown + "]");
    }
    void activation_data()
    {
        OvtTest::table(); // extra operations; typed; answer (QMessageBox button); question
        OvtTest::row("display variants without display change are refused",
                     "40000; ; 400; Activation of this element not supported!");
        OvtTest::row("No keeps the edits", "0; x; 10000; Changes not saved!");
        OvtTest::row("Yes activates", "0; x; 4000; Changes not saved!");
        OvtTest::row("display change goes to the module, which owns its record", "800; ; ; ");
    }
    void activation()
    {
        const auto [offers, typed, answerHex, asked] = OvtTest::fields<4>();
        const int answer = answerHex.toInt(nullptr, 16);
        _form->setElement(user(0), ViewEditRole);
        _form->show();
        QTest::keyClicks(_form->shell, typed);
        auto *target = new User(*_module, "user", "target", {},
                                OperationType(offers.toULongLong(nullptr, 16)));
        QSignalSpy current(target, &TreeNode::setCurrentNode);
        QString question;
        if (answer)
            answerNextBox(QMessageBox::StandardButton(answer), &question);
        _form->setTreeNodeCurrent(target);
        QCOMPARE(question.section('\n', 0, 0), asked);
        QCOMPARE(current.count(), int(answer == 0 || answer == QMessageBox::Yes));
        // The edits stay until the tree shows the form another element
        QCOMPARE(_form->shell->text() + (_form->isChanged() ? " changed" : ""),
                 "/bin/bash" + typed + (typed.isEmpty() ? "" : " changed"));
        QCOMPARE(_module->log.last(), QString(answer ? "alice:20" : "target:800"));
    }
    void forgetsDestroyedElement()
    {
        ElementWidgetContainer2 container;
        container.setElement(user(0));
        delete user(0);
        QCOMPARE(_form->element(), nullptr);
        QCOMPARE(tabs(container), QString());
        QCOMPARE(_form->parent(), nullptr); // given back to the module

        showList();
        delete _module->users;
        _module->users = nullptr;
        QCOMPARE(_list->element(), nullptr);
        QCOMPARE(_list->proxyModel()->rowCount(), 0);
    }
    void viewSignals() // through the list widget, which passes the view's element signals on
    {
        showList();
        _list->patternLineEdit()->setFocus();
        QStringList record;
        QObject guard; // the recording ends with the test
        auto add = [&](const char *what) {
            return [&record, what](Element *e) {
                record << QString("%1(%2)").arg(what, e ? e->title() : "-");
            };
        };
        ElementTreeView *view = _list->elementTreeView();
        connect(view, &ElementTreeView::currentElementChangedStructure, &guard,
                [&, note = add("structure")](auto index) {
                    note(index.isValid() ? _list->proxyModel()->toElement(index) : nullptr);
                });
        connect(_list, &ElementsElementWidget::elementContextOperationChangedSelected, &guard,
                add("selected"));
        connect(_list, &ElementsElementWidget::elementContextOperationChangedFocused, &guard,
                add("focused"));
        connect(_list, &ElementsElementWidget::elementContextOperationChanged, &guard,
                add("changed"));
        const auto select = [&](int row) { // of the source
            view->selectionModel()->select(
                _list->proxyModel()->mapFromSource(_list->elementModel()->index(row, 1)),
                QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
        };
        // Selected while the user works elsewhere, only the structure follows, but a removal
        // leaves none selected; the focus reports the selected element, a change of its row
        // (only) too, and so does a selection then
        select(1);
        _module->users->removeAt(1, 1);
        select(1);
        view->setFocus();
        for (int row : {1, 0})
            _module->users->childNodes().value(row)->emitNodeDataChanged();
        select(0);
        QCOMPARE(record.join(' '),
                 "structure(bob) structure(-) selected(-) structure(a.b) "
                 "focused(a.b) changed(a.b) structure(alice) selected(alice)");
    }
    void containerTabs()
    {
        user(0)->append(new Mailbox(*_module, "mailbox", "mail", "/var/mail/alice"));
        _module->log.clear();
        ElementWidgetContainer2 container;
        container.resize(420, 240);
        container.show();
        QSignalSpy states(&container, &ElementWidgetContainer2::contentChanged);
        QVERIFY(container.setElement(user(0)));
        QCOMPARE(tabs(container),
                 QStringLiteral("alice mail Groups")); // own first, then by priority
        QCOMPARE(_module->log, QStringList {"alice:20"}); // only the tab shown reads

        QTabBar *bar = container.tabWidget()->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(1).center());
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(0).center());
        QTest::keyClicks(_form->shell, "x");
        QCOMPARE(states.last().at(0).toInt(), 3);
        QTest::mouseClick(_form->apply, Qt::LeftButton); // updated: unchanged again
        QCOMPARE(states.last().at(0).toInt(), 0);
        QTest::keyClicks(_form->shell, "x");
        QString question; // leaving the edits: No stays, Yes moves on
        for (auto answer : {QMessageBox::No, QMessageBox::Yes}) {
            answerNextBox(answer, &question);
            QCOMPARE(container.setElement(user(1)), answer == QMessageBox::Yes);
            QCOMPARE(question, QStringLiteral("Changes not saved!\nContinue without saving?"));
            QCOMPARE(tabs(container),
                     answer == QMessageBox::Yes ? "bob Groups" : "alice mail Groups");
        }

        const QString dir = QStringLiteral(OVT_PICTURES_DIR);
        QVERIFY(QDir().mkpath(dir));
        QVERIFY(container.grab().save(dir + "/elementwidgetcontainer2.png"));
        container.setElement(_module->users);
        QVERIFY(container.grab().save(dir + "/elementselementwidget.png"));
        container.setElement(nullptr);
        _form->setElement(nullptr, CreateRole);
        _form->show();
        _form->shell->clear();
        QTest::keyClicks(_form->shell, "/bin/zsh");
        QVERIFY(_form->grab().save(dir + "/vieweditelementwidget.png"));
        QTest::mouseClick(_form->apply, Qt::LeftButton);
        QCOMPARE(_module->log.join(' '), "alice:20 mail:20 alice:20 alice:40 bob:20 widget:4");
        QCOMPARE(_module->users->childNodesCount(), 5);
    }

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
    QString rows() const { return OvtTest::modelToString(_list->proxyModel()); }
    QString tabs(ElementWidgetContainer2 &container) const
    {
        QStringList titles;
        for (int i = 0; i < container.tabWidget()->count(); ++i)
            titles << container.tabWidget()->tabText(i);
        return titles.join(' ');
    }

    std::unique_ptr<UsersModule> _module;
    ElementsElementWidget *_list = nullptr;
    UserForm *_form = nullptr;
};

QTEST_MAIN(tst_ElementWidgets)
#include "tst_elementwidgets.moc"
