#include "element/element.h"
#include "element/elementdata.h"
#include "plugin/acceptormodule.h"
#include "plugin/moduleroottreenode.h"
#include "plugin/supplementmodule.h"
#include "widgets/listelementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QPointer>
#include <QSettings>
#include <QTest>

#include <memory>
#include <unistd.h>

namespace {

// Records the operations that reach it, as a plug-in's module starts tasks.
class RecordingModule : public Module
{
public:
    explicit RecordingModule(const QString &name)
        : Module(name, nullptr, true)
    { }

    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int flags) override
    {
        Element *element = context ? context->elementContext() : nullptr;
        told << QStringLiteral("%1:%2:%3:%4")
                    .arg(element ? element->id() : id())
                    .arg(quint64(type), 0, 16)
                    .arg(data ? data->name() : QStringLiteral("null"))
                    .arg(flags);
    }

    QStringList told;
};

class TypedElement : public Element
{
public:
    TypedElement(Module &module, const QString &type, const QString &id)
        : Element(module, nullptr)
    {
        _elementType = type;
        _id = id;
    }
    QString caption() const override { return id(); }
};

class TypedWidget : public ViewEditElementWidget
{
public:
    TypedWidget(const QString &type, Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = type;
    }

    // Plug-ins override the first slot of each pair; the second must reach the override too.
    void afterSuccessfulUpdate() override { ++updates; }
    bool isContentValid() const override { return valid; }

    int updates = 0;
    bool valid = true;
};

// A child whose destructor takes a later sibling with it, as an element may take its records.
struct TakingChild : QObject
{
    using QObject::QObject;
    ~TakingChild() override { delete sibling; }
    QPointer<QObject> sibling;
};

} // namespace

class tst_Module : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void itemData_data();
    void itemData();
    void checkBoxEdit_data();
    void checkBoxEdit();
    void paranoidPersistsUnderExactKey();
    void permissionPredicates_data();
    void permissionPredicates();
    void elementWidgets();
    void performOperationReachesChildModules();
    void destructionDeletesChildrenAndWidgets();
    void acceptorLooksUpTheDonorsElements();
    void supplementPassesOnlyInsertedOfItsTypeToTheDonor_data();
    void supplementPassesOnlyInsertedOfItsTypeToTheDonor();
};

void tst_Module::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_module"));
}

void tst_Module::init()
{
    QSettings().clear();
}

void tst_Module::itemData_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("value");

    QTest::newRow("name") << "module" << 0 << int(Qt::DisplayRole) << QVariant("a");
    QTest::newRow("name as tool tip") << "module" << 0 << int(Qt::ToolTipRole) << QVariant("a");
    QTest::newRow("reread tool tip")
        << "module" << 1 << int(Qt::ToolTipRole) << QVariant("Force reread mode");
    QTest::newRow("check state is a bool, not a Qt::CheckState")
        << "module" << 1 << int(Qt::CheckStateRole) << QVariant(true);
    QTest::newRow("description") << "module" << 2 << int(Qt::ToolTipRole) << QVariant("About a");
    QTest::newRow("acceptor: no check box")
        << "acceptor" << 1 << int(Qt::CheckStateRole) << QVariant();
    QTest::newRow("acceptor: description")
        << "acceptor" << 2 << int(Qt::DisplayRole) << QVariant("About a");
    QTest::newRow("supplement: no check box")
        << "supplement" << 1 << int(Qt::CheckStateRole) << QVariant();
}

void tst_Module::itemData()
{
    QFETCH(QString, kind);
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, value);

    std::unique_ptr<Module> module;
    if (kind == "acceptor")
        module = std::make_unique<AcceptorModule>("a", 2, "users", "About a", nullptr);
    else if (kind == "supplement")
        module = std::make_unique<SupplementModule>("a", 2, "users", "About a", "login", nullptr,
                                                    nullptr);
    else
        module = std::make_unique<Module>("a", nullptr, true);
    if (kind == "module")
        module->moduleData()->insert("description", "About a");

    QCOMPARE(module->data(column, role), value);
    QCOMPARE(module->data(column, role).userType(), value.userType());
    QCOMPARE(bool(module->flags(1) & Qt::ItemIsUserCheckable), kind == "module");
    QCOMPARE(module->setData(1, Qt::Unchecked, Qt::CheckStateRole), kind == "module");
    if (kind != "module") {
        QCOMPARE(module->expectedDepth(), 2);
        QCOMPARE(module->expectedParentId(), QString("users"));
    }
    ModuleRootTreeNode root;
    QStringList headers;
    for (int section = 0; section < 4; ++section)
        headers << root.headerData(section, Qt::Horizontal).toString();
    QCOMPARE(headers, QStringList({"Name", "Reread", "Description", ""}));
}

void tst_Module::checkBoxEdit_data()
{
    QTest::addColumn<bool>("paranoid");
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<bool>("after");

    QTest::newRow("checking a checked box is no change") << true << 1 << 2 << false << true;
    QTest::newRow("unchecking") << true << 1 << 0 << true << false;
    QTest::newRow("partially checked counts as unchecked") << true << 1 << 1 << true << false;
    QTest::newRow("checking") << false << 1 << 2 << true << true;
    QTest::newRow("other column refused") << false << 0 << 2 << false << false;
}

void tst_Module::checkBoxEdit()
{
    QFETCH(bool, paranoid);
    QFETCH(int, column);
    QFETCH(int, value);
    QFETCH(bool, accepted);
    QFETCH(bool, after);

    Module module("box", nullptr, paranoid);
    QCOMPARE(module.setData(column, value, Qt::CheckStateRole), accepted);
    QCOMPARE(module.getData("paranoid").toBool(), after);
}

void tst_Module::paranoidPersistsUnderExactKey()
{
    {
        Module module("users", nullptr, false);
        QVERIFY(module.setData(1, int(Qt::Checked), Qt::CheckStateRole));
        AcceptorModule acceptor("mail", 2, "users", "", nullptr); // persists nothing
    }
    QCOMPARE(QSettings().allKeys(), QStringList({"module/usersparanoid"}));
    QCOMPARE(QSettings().value("module/usersparanoid"), QVariant(true));
    Module again("users", nullptr, false);
    QCOMPARE(again.getData("paranoid"), QVariant(true));
}

void tst_Module::permissionPredicates_data()
{
    QTest::addColumn<QString>("key");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("administrator");
    QTest::addColumn<bool>("macAdministrator");

    QTest::newRow("nothing set") << QString() << QVariant() << false << false;
    QTest::newRow("administrator bool true") << "administrator" << QVariant(true) << true << false;
    QTest::newRow("administrator as the string true is not enough")
        << "administrator" << QVariant("true") << false << false;
    QTest::newRow("mac administrator") << "macAdministrator" << QVariant(true) << false << true;
    QTest::newRow("the sub-module's own value wins")
        << "administrator" << QVariant(true) << false << false;
    QTest::newRow("the search stops at a node that is no module")
        << "administrator" << QVariant(true) << false << false;
}

void tst_Module::permissionPredicates()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, administrator);
    QFETCH(bool, macAdministrator);

    const QString name = QTest::currentDataTag();
    Module top("top", nullptr, false);
    TreeNode between;
    Module parent("parent", nullptr, false);
    Module child("child", nullptr, false);
    parent.append(&child);
    if (name.contains("stops")) {
        top.moduleData()->insert(key, value);
        top.append(&between);
        between.append(&parent);
    } else if (!key.isEmpty()) {
        parent.moduleData()->insert(key, value);
    }
    if (name.contains("own value"))
        child.moduleData()->insert(key, false);

    QCOMPARE(Module::isAdministratorHierarchy(child), administrator);
    QCOMPARE(Module::isMacAdministratorHierarchy(child), macAdministrator);
    // Without mandatory integrity control only the user decides.
    QCOMPARE(Module::isAdministrator(child), geteuid() == 0);
}

void tst_Module::elementWidgets()
{
    Module module("m", nullptr, false);
    auto *form = new TypedWidget("user", module);
    TypedWidget second("user", module);
    TypedWidget undefined(ContextOperation::undefinedElementType, module);
    auto *list = new ListElementWidget("group", module, nullptr);
    QVERIFY(list->elementModel());
    for (ElementWidget *widget :
         std::initializer_list<ElementWidget *> {nullptr, form, &second, &undefined, list})
        module.insertElementWidget(widget);
    QCOMPARE(module.elementWidget("user"), form);
    QCOMPARE(module.elementWidget("group"), list);
    QCOMPARE(module.elementWidget(ContextOperation::undefinedElementType), nullptr);

    QStringList log;
    connect(&module, &Module::contentElementWidgetChanged, this,
            [&log](int state) { log << QStringLiteral("content(%1)").arg(state); });
    connect(&module, &Module::customContextMenuRequested, this,
            [&log](const QPoint &pos) { log << QStringLiteral("menu(%1)").arg(pos.x()); });
    module.connectElementWidgets();
    module.connectElementWidgets(); // a second call must not double the relays
    form->changeContent();
    form->valid = false;
    form->changeContent();
    emit list->customContextMenuRequested(QPoint(7, 0));
    QCOMPARE(log, QStringList({"content(3)", "content(2)", "menu(7)"}));

    // Both slots of a pair reach the override.
    ViewEditElementWidget *base = form;
    base->afterSuccessfulUpdate();
    qAsConst(*base).afterSuccessfulUpdate();
    QCOMPARE(form->updates, 2);
    QVERIFY(!base->isContentValid() && !qAsConst(*base).isContentValid());

    // A widget that its view deleted first is forgotten, not deleted again.
    delete list;
    QCOMPARE(module.elementWidget("group"), nullptr);
}

void tst_Module::performOperationReachesChildModules()
{
    Module parent("parent", nullptr, false);
    RecordingModule first("first");
    TreeNode plain;
    RecordingModule second("second");
    parent.append({&first, &plain, &second});
    ElementData data;
    data.setName("x");

    parent.performOperation(nullptr, UpdateOperation, &data, 5);

    QCOMPARE(first.told + second.told, QStringList({"first:40:x:5", "second:40:x:5"}));
    parent.clear();
}

void tst_Module::destructionDeletesChildrenAndWidgets()
{
    auto *module = new Module("gone", nullptr, true);
    QPointer<QObject> child = new TreeNode(module);
    auto *taking = new TakingChild(module);
    QPointer<QObject> taken = taking->sibling = new QObject(module);
    QPointer<TypedWidget> widget = new TypedWidget("user", *module);
    module->insertElementWidget(widget);
    module->elementNodes() << static_cast<TreeNode *>(child.data());

    delete module;

    QVERIFY(child.isNull() && taken.isNull() && widget.isNull());
    QCOMPARE(QSettings().value("module/goneparanoid"), QVariant(true));
}

void tst_Module::acceptorLooksUpTheDonorsElements()
{
    RecordingModule donor("users");
    auto *alice = new TypedElement(donor, "login", "alice");
    donor.elementNodes() << alice;
    AcceptorModule acceptor("mail", 2, "users", QString(), nullptr);

    // Directly under the module root there is no donor.
    ModuleRootTreeNode root;
    root.append(&acceptor);
    QCOMPARE(acceptor.elementFromDonor("alice"), nullptr);

    root.removeOne(&acceptor);
    donor.append(&acceptor);
    QCOMPARE(acceptor.elementFromDonor("alice"), alice);
    QCOMPARE(acceptor.elementFromDonor("bob"), nullptr);
    donor.removeOne(&acceptor);
}

void tst_Module::supplementPassesOnlyInsertedOfItsTypeToTheDonor_data()
{
    QTest::addColumn<QString>("context");
    QTest::addColumn<quint64>("operation");
    QTest::addColumn<QStringList>("told");

    QTest::newRow("inserted login goes to the donor, arguments unchanged")
        << "login" << quint64(InsertedOperation) << QStringList {"postmaster:1:record:7"};
    QTest::newRow("inserted element of another type is ignored")
        << "mailbox" << quint64(InsertedOperation) << QStringList();
    QTest::newRow("removed login is ignored")
        << "login" << quint64(RemovedOperation) << QStringList();
    QTest::newRow("read of a login is ignored")
        << "login" << quint64(ReadOperation) << QStringList();
    QTest::newRow("widget context is ignored")
        << "widget" << quint64(InsertedOperation) << QStringList();
    QTest::newRow("no context is ignored") << "none" << quint64(InsertedOperation) << QStringList();
}

void tst_Module::supplementPassesOnlyInsertedOfItsTypeToTheDonor()
{
    QFETCH(QString, context);
    QFETCH(quint64, operation);
    QFETCH(QStringList, told);

    // A sub-module would hear what a plain module forwards; a supplement forwards nothing.
    RecordingModule donor("users");
    RecordingModule sub("sub");
    SupplementModule mail("mail", 2, "users", QString(), "login", &donor, nullptr);
    mail.append(&sub);
    TypedElement login(mail, "login", "postmaster");
    TypedElement mailbox(mail, "mailbox", "box");
    TypedWidget widget("login", mail);
    ContextOperation *contexts[] = {&login, &mailbox, &widget};
    const int which = QStringList {"login", "mailbox", "widget"}.indexOf(context);
    ElementData data;
    data.setName("record");

    mail.performOperation(which < 0 ? nullptr : contexts[which], OperationType(operation), &data,
                          7);

    QCOMPARE(donor.told, told);
    QCOMPARE(sub.told, QStringList());
    mail.removeOne(&sub);
}

QTEST_MAIN(tst_Module)
#include "tst_module.moc"
