#include "element/contextoperation.h"
#include "element/elementdata.h"
#include "plugin/module.h"
#include "plugin/moduleroottreenode.h"
#include "widgets/listelementwidget.h"
#include "widgets/vieweditelementwidget.h"

#include <QPointer>
#include <QSettings>
#include <QTest>

#include <unistd.h>

namespace {

// Records the operations that reach it, as a plug-in's module starts tasks.
class RecordingModule : public Module
{
public:
    RecordingModule(const QString &name, QStringList *log, QObject *parent = nullptr)
        : Module(name, parent, false)
        , _log(log)
    { }

    void performOperation(ContextOperation *, OperationType type, ElementData *data,
                          int flags) override
    {
        *_log << QStringLiteral("%1:%2:%3:%4")
                     .arg(id())
                     .arg(quint64(type), 0, 16)
                     .arg(data ? data->name() : QStringLiteral("null"))
                     .arg(flags);
    }

private:
    QStringList *_log;
};

class TypedWidget : public ViewEditElementWidget
{
public:
    TypedWidget(const QString &type, Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = type;
    }
};

} // namespace

class tst_Module : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();

    void itemData();
    void checkBoxEdit_data();
    void checkBoxEdit();
    void paranoidPersistsUnderExactKey();
    void dataHierarchy();
    void permissionPredicates_data();
    void permissionPredicates();
    void elementWidgetRegistry();
    void elementWidgetsRelayed();
    void performOperationReachesChildModules();
    void destructionDeletesChildrenAndWidgets();
    void rootHeader();
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

void tst_Module::itemData()
{
    Module module("a", nullptr, true);
    QCOMPARE(module.data(0, Qt::DisplayRole), QVariant("a"));
    QCOMPARE(module.data(0, Qt::ToolTipRole), QVariant("a"));
    QCOMPARE(module.data(1, Qt::ToolTipRole), QVariant("Force reread mode"));
    // The check state is a bool, not a Qt::CheckState.
    QCOMPARE(module.data(1, Qt::CheckStateRole).userType(), int(QMetaType::Bool));
    QCOMPARE(module.data(1, Qt::CheckStateRole), QVariant(true));
    QCOMPARE(module.data(2, Qt::DisplayRole), QVariant());
    module.moduleData()->insert("description", "About a");
    QCOMPARE(module.data(2, Qt::DisplayRole), QVariant("About a"));
    QCOMPARE(module.data(3, Qt::DisplayRole), QVariant());
}

void tst_Module::checkBoxEdit_data()
{
    QTest::addColumn<bool>("paranoid");
    QTest::addColumn<bool>("removeKey");
    QTest::addColumn<int>("column");
    QTest::addColumn<QVariant>("value");
    QTest::addColumn<bool>("accepted");
    QTest::addColumn<bool>("after");

    QTest::newRow("checking a checked box is no change")
        << true << false << 1 << QVariant(int(Qt::Checked)) << false << true;
    QTest::newRow("unchecking") << true << false << 1 << QVariant(int(Qt::Unchecked)) << true
                                << false;
    QTest::newRow("partially checked counts as unchecked")
        << true << false << 1 << QVariant(int(Qt::PartiallyChecked)) << true << false;
    QTest::newRow("checking") << false << false << 1 << QVariant(int(Qt::Checked)) << true << true;
    QTest::newRow("other column refused")
        << false << false << 0 << QVariant(int(Qt::Checked)) << false << false;
    QTest::newRow("without the key there is no box")
        << false << true << 1 << QVariant(int(Qt::Checked)) << false << false;
}

void tst_Module::checkBoxEdit()
{
    QFETCH(bool, paranoid);
    QFETCH(bool, removeKey);
    QFETCH(int, column);
    QFETCH(QVariant, value);
    QFETCH(bool, accepted);
    QFETCH(bool, after);

    Module module("box", nullptr, paranoid);
    if (removeKey)
        module.moduleData()->remove("paranoid");
    QCOMPARE(bool(module.flags(1) & Qt::ItemIsUserCheckable), !removeKey);
    QCOMPARE(module.flags(0), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    QCOMPARE(module.setData(column, value, Qt::CheckStateRole), accepted);
    QCOMPARE(module.getData("paranoid").toBool(), after);
    if (removeKey)
        QVERIFY(!module.data(1, Qt::CheckStateRole).isValid());
}

void tst_Module::paranoidPersistsUnderExactKey()
{
    {
        Module module("users", nullptr, false);
        QVERIFY(module.setData(1, int(Qt::Checked), Qt::CheckStateRole));
    }
    QCOMPARE(QSettings().allKeys(), QStringList({"module/usersparanoid"}));
    QCOMPARE(QSettings().value("module/usersparanoid"), QVariant(true));
    Module again("users", nullptr, false);
    QCOMPARE(again.getData("paranoid"), QVariant(true));

    // A module without the key persists nothing.
    QSettings().clear();
    {
        Module module("b", nullptr, true);
        module.moduleData()->remove("paranoid");
    }
    QCOMPARE(QSettings().allKeys(), QStringList());
}

void tst_Module::dataHierarchy()
{
    Module parent("parent", nullptr, false);
    Module child("child", nullptr, false);
    parent.append(&child);
    parent.moduleData()->insert("administrator", true);

    QCOMPARE(child.getData("administrator"), QVariant());
    QCOMPARE(child.getDataHierarchy("administrator"), QVariant(true));
    child.moduleData()->insert("administrator", false);
    QCOMPARE(child.getDataHierarchy("administrator"), QVariant(false));
    QCOMPARE(child.getDataHierarchy("absent"), QVariant());
    // The search stops at the first node that is no module.
    TreeNode between;
    Module top("top", nullptr, false);
    top.moduleData()->insert("administrator", true);
    parent.moduleData()->remove("administrator");
    child.moduleData()->remove("administrator");
    top.append(&between);
    between.append(&parent);
    QCOMPARE(child.getDataHierarchy("administrator"), QVariant());
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
    QTest::newRow("administrator as int 1 is not enough")
        << "administrator" << QVariant(1) << false << false;
    QTest::newRow("mac administrator") << "macAdministrator" << QVariant(true) << false << true;
}

void tst_Module::permissionPredicates()
{
    QFETCH(QString, key);
    QFETCH(QVariant, value);
    QFETCH(bool, administrator);
    QFETCH(bool, macAdministrator);

    Module parent("parent", nullptr, false);
    Module child("child", nullptr, false);
    parent.append(&child);
    if (!key.isEmpty())
        parent.moduleData()->insert(key, value);

    QCOMPARE(Module::isAdministratorHierarchy(child), administrator);
    QCOMPARE(Module::isMacAdministratorHierarchy(child), macAdministrator);
    // Without mandatory integrity control only the user decides.
    QCOMPARE(Module::isAdministrator(child), geteuid() == 0);
}

void tst_Module::elementWidgetRegistry()
{
    Module module("m", nullptr, false);
    auto *first = new TypedWidget("user", module);
    QPointer<TypedWidget> second = new TypedWidget("user", module);
    QPointer<TypedWidget> undefined
        = new TypedWidget(ContextOperation::undefinedElementType, module);

    module.insertElementWidget(nullptr);
    module.insertElementWidget(first);
    module.insertElementWidget(second);
    module.insertElementWidget(undefined);

    QCOMPARE(module.elementWidget("user"), first);
    QCOMPARE(module.elementWidget(ContextOperation::undefinedElementType), nullptr);
    QCOMPARE(module.elementWidget("group"), nullptr);
    QVERIFY(module.elementActions("user").isEmpty());
    delete second;
    delete undefined;
}

void tst_Module::elementWidgetsRelayed()
{
    Module module("m", nullptr, false);
    auto *form = new TypedWidget("user", module);
    auto *list = new ListElementWidget("group", module, nullptr);
    module.insertElementWidget(form);
    module.insertElementWidget(list);
    QStringList log;
    connect(&module, &Module::contentElementWidgetChanged, this,
            [&log](int state) { log << QStringLiteral("content(%1)").arg(state); });
    connect(&module, &Module::customContextMenuRequested, this,
            [&log](const QPoint &pos) { log << QStringLiteral("menu(%1)").arg(pos.x()); });

    module.connectElementWidgets();
    module.connectElementWidgets(); // a second call must not double the relays
    form->changeContent();
    emit list->customContextMenuRequested(QPoint(7, 0));

    QCOMPARE(log, QStringList({"content(3)", "menu(7)"}));
    QCOMPARE(list->elementType(), QString("group"));
}

void tst_Module::performOperationReachesChildModules()
{
    QStringList log;
    Module parent("parent", nullptr, false);
    RecordingModule first("first", &log);
    TreeNode plain;
    RecordingModule second("second", &log);
    parent.append({&first, &plain, &second});
    ElementData data;
    data.setName("x");

    parent.performOperation(nullptr, UpdateOperation, &data, 5);

    QCOMPARE(log, QStringList({"first:40:x:5", "second:40:x:5"}));
}

void tst_Module::destructionDeletesChildrenAndWidgets()
{
    auto *module = new Module("gone", nullptr, true);
    QPointer<QObject> child = new TreeNode(module);
    QPointer<TypedWidget> widget = new TypedWidget("user", *module);
    module->insertElementWidget(widget);
    module->elementNodes() << static_cast<TreeNode *>(child.data());

    delete module;

    QVERIFY(child.isNull());
    QVERIFY(widget.isNull());
    QCOMPARE(QSettings().value("module/goneparanoid"), QVariant(true));
}

void tst_Module::rootHeader()
{
    ModuleRootTreeNode root;
    QCOMPARE(root.columnCount(), 3);
    QStringList headers;
    for (int section = 0; section < 4; ++section)
        headers << root.headerData(section, Qt::Horizontal).toString();
    QCOMPARE(headers, QStringList({"Name", "Reread", "Description", ""}));
}

QTEST_MAIN(tst_Module)
#include "tst_module.moc"
