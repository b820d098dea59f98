#include "element/changedisplayelementdata.h"
#include "element/element.h"
#include "element/elementdata.h"
#include "element/elementroottreenode.h"
#include "plugin/module.h"
#include "widgets/vieweditelementwidget.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

namespace {

// Logs every operation that reaches it, as the tool's module would turn them into tasks.
class LogModule : public Module
{
public:
    explicit LogModule(QStringList *log)
        : Module(QStringLiteral("log"), nullptr, false)
        , _log(log)
    { }

    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int flags) override
    {
        const QString who = context && context->elementContext()
            ? context->elementContext()->title()
            : QStringLiteral("widget");
        *_log << QStringLiteral("%1:%2:%3:%4")
                     .arg(who)
                     .arg(quint64(type), 0, 16)
                     .arg(data ? data->name() : QStringLiteral("null"))
                     .arg(flags);
    }

private:
    QStringList *_log;
};

class TestElement : public Element
{
public:
    TestElement(Module &module, const QString &title, OperationType offered = NoOperation,
                bool (*editable)(const Module &) = nullptr, int depth = -1)
        : Element(module, editable)
        , _offered(offered)
    {
        _elementType = QStringLiteral("user");
        _expectedDepth = -1;
        setTitle(title);
        _expectedDepth = depth;
    }

    QString caption() const override { return QStringLiteral("Caption of ") + title(); }
    OperationType availableOperations() const override { return _offered; }
    void performOperation(OperationType type, ElementData *data, int alternative) override
    {
        module().performOperation(this, type, data, alternative);
    }

    void setRequireLoad(bool requireLoad) { _requireLoad = requireLoad; }
    bool requireLoad() const { return _requireLoad; }
    void setGroup(const QString &group) { _groupElementType = group; }

private:
    OperationType _offered;
};

class UserWidget : public ViewEditElementWidget
{
public:
    explicit UserWidget(Module &module)
        : ViewEditElementWidget(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("user");
    }
};

QString titles(const TreeNode *node)
{
    QStringList result;
    for (TreeNode *child : node->childNodes())
        result << child->data(0, Qt::DisplayRole).toString();
    return result.join(QLatin1Char(' '));
}

} // namespace

class tst_Element : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void roles_data();
    void roles();
    void groupElementTypeInherited();
    void titleAndId_data();
    void titleAndId();
    void editableCallback();
    void lazyLoading_data();
    void lazyLoading();
    void insertNotifiesModules_data();
    void insertNotifiesModules();
    void removeClampsAndNotifies_data();
    void removeClampsAndNotifies();
    void operationsReachTheModule();
    void elementWidgetByRole();
    void ownsItsData();
    void rootHeader();

private:
    QStringList _log;
    std::unique_ptr<LogModule> _module;
};

void tst_Element::init()
{
    _log.clear();
    _module = std::make_unique<LogModule>(&_log);
}

void tst_Element::cleanup()
{
    _module.reset();
}

void tst_Element::roles_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("title role, any column") << 3 << int(Element::TitleRole) << QVariant("alice");
    QTest::newRow("element type role") << 0 << 261 << QVariant("user");
    QTest::newRow("own group type, not the inherited one") << 0 << 262 << QVariant("Undefined");
    QTest::newRow("display") << 0 << int(Qt::DisplayRole) << QVariant("alice");
    QTest::newRow("no display in other columns") << 1 << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("tool tip is the caption")
        << 0 << int(Qt::ToolTipRole) << QVariant("Caption of alice");
    QTest::newRow("id role from the tree") << 0 << 258 << QVariant("user_alice");
}

void tst_Element::roles()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);

    TestElement group(*_module, "group");
    group.setGroup("accounts");
    auto *alice = new TestElement(*_module, "alice");
    group.append(alice);

    QCOMPARE(alice->data(column, role), expected);
    QCOMPARE(alice->columnCount(), 1);
    QVERIFY(alice->data(0, Qt::DecorationRole).value<QIcon>().isNull());
}

void tst_Element::groupElementTypeInherited()
{
    TestElement top(*_module, "top");
    top.setGroup("accounts");
    auto *middle = new TestElement(*_module, "middle");
    auto *leaf = new TestElement(*_module, "leaf");
    top.append(middle);
    middle->append(leaf);

    QCOMPARE(leaf->groupElementType(), QString("accounts"));
    middle->setGroup("people");
    QCOMPARE(leaf->groupElementType(), QString("people"));
    QCOMPARE(leaf->data(0, 262).toString(), QString("Undefined"));

    ElementRootTreeNode root;
    TestElement alone(*_module, "alone");
    root.append(&alone);
    QCOMPARE(alone.groupElementType(), ContextOperation::undefinedElementType);
}

void tst_Element::titleAndId_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("id");
    QTest::addColumn<int>("changes");

    QTest::newRow("run-time element takes title and id") << -1 << "bob"
                                                         << "user_bob" << 1;
    QTest::newRow("persistent element keeps both, silently") << 2 << "alice"
                                                             << "user_alice" << 0;
}

void tst_Element::titleAndId()
{
    QFETCH(int, depth);
    QFETCH(QString, title);
    QFETCH(QString, id);
    QFETCH(int, changes);

    TestElement element(*_module, "alice", NoOperation, nullptr, depth);
    QCOMPARE(element.isPersistent(), depth != -1);
    QSignalSpy spy(&element, &TreeNode::nodeDataChanged);

    element.setTitle("bob");

    QCOMPARE(element.title(), title);
    QCOMPARE(element.id(), id);
    QCOMPARE(spy.count(), changes);
}

void tst_Element::editableCallback()
{
    TestElement never(*_module, "never");
    TestElement always(*_module, "always", NoOperation, &Module::defaultTrue);
    QVERIFY(!never.isEditable());
    QVERIFY(always.isEditable());
    QCOMPARE(always.contextType(), ContextOperation::ElementContext);
    QCOMPARE(always.elementContext(), &always);
    QCOMPARE(always.elementWidgetContext(), nullptr);
    QCOMPARE(&always.module(), _module.get());
    QCOMPARE(always.QObject::parent(), _module.get());
}

void tst_Element::lazyLoading_data()
{
    QTest::addColumn<bool>("requireLoad");
    QTest::addColumn<quint64>("offered");
    QTest::addColumn<bool>("canFetch");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("requireLoadAfter");

    QTest::newRow("pending and readable: reads once")
        << true << quint64(ReadContentOperation) << true << QStringList {"box:8:null:0"} << false;
    QTest::newRow("pending, content not offered: nothing starts")
        << true << quint64(ReadOperation) << false << QStringList() << true;
    QTest::newRow("already loaded")
        << false << quint64(ReadContentOperation) << false << QStringList() << false;
}

void tst_Element::lazyLoading()
{
    QFETCH(bool, requireLoad);
    QFETCH(quint64, offered);
    QFETCH(bool, canFetch);
    QFETCH(QStringList, log);
    QFETCH(bool, requireLoadAfter);

    TestElement box(*_module, "box", OperationType(offered));
    box.setRequireLoad(requireLoad);
    QCOMPARE(box.canFetchMore(), canFetch);

    box.fetchMore();
    box.fetchMore(); // a view asking again while the read runs starts nothing more

    QCOMPARE(_log, log);
    QCOMPARE(box.requireLoad(), requireLoadAfter);
}

void tst_Element::insertNotifiesModules_data()
{
    QTest::addColumn<bool>("underRoot");
    QTest::newRow("under an element") << false;
    QTest::newRow("under the element root") << true;
}

void tst_Element::insertNotifiesModules()
{
    QFETCH(bool, underRoot);

    TestElement parentElement(*_module, "parent");
    ElementRootTreeNode root;
    TreeNode *parent = underRoot ? static_cast<TreeNode *>(&root) : &parentElement;
    auto *a = new TestElement(*_module, "a");
    auto *plain = new TreeNode(_module.get());
    auto *b = new TestElement(*_module, "b");

    parent->insert(0, QList<TreeNode *> {a, plain, b});
    parent->insert(1, new TestElement(*_module, "c")); // the single-node form too

    QCOMPARE(_log, QStringList({"a:1:null:0", "b:1:null:0", "c:1:null:0"}));
    QCOMPARE(titles(parent), QString("a c  b"));
    parent->clear();
}

void tst_Element::removeClampsAndNotifies_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QStringList>("log");

    QTest::newRow("count cut to the end")
        << 5 << 10 << "e0 e1 e2 e3 e4" << QStringList {"e5:2:null:0", "e6:2:null:0"};
    QTest::newRow("position at the end does nothing")
        << 7 << 1 << "e0 e1 e2 e3 e4 e5 e6" << QStringList();
    QTest::newRow("zero count does nothing") << 0 << 0 << "e0 e1 e2 e3 e4 e5 e6" << QStringList();
    QTest::newRow("negative position does nothing")
        << -1 << 2 << "e0 e1 e2 e3 e4 e5 e6" << QStringList();
    QTest::newRow("plain nodes are removed without notice")
        << 2 << 2 << "e0 e1 e4 e5 e6" << QStringList {"e2:2:null:0"};
}

void tst_Element::removeClampsAndNotifies()
{
    QFETCH(int, pos);
    QFETCH(int, count);
    QFETCH(QString, left);
    QFETCH(QStringList, log);

    for (bool underRoot : {false, true}) {
        ElementRootTreeNode root;
        TestElement parentElement(*_module, "parent");
        TreeNode *parent = underRoot ? static_cast<TreeNode *>(&root) : &parentElement;
        QList<TreeNode *> children;
        for (int i = 0; i < 7; ++i) {
            if (i == 3) {
                auto *plain = new TestElement(*_module, "e3");
                children << plain;
                continue;
            }
            children << new TestElement(*_module, QStringLiteral("e%1").arg(i));
        }
        parent->append(children);
        // e3 stands for a node that is not an element.
        parent->removeAt(3, 1);
        auto *plain = new TreeNode(_module.get());
        plain->setObjectName("e3");
        parent->insert(3, plain);
        _log.clear();

        parent->removeAt(pos, count);

        QStringList shown;
        for (TreeNode *child : parent->childNodes())
            shown << (qobject_cast<Element *>(child) ? static_cast<Element *>(child)->title()
                                                     : child->objectName());
        QCOMPARE(shown.join(' '), left);
        QCOMPARE(_log, log);
        parent->clear();
    }
}

void tst_Element::operationsReachTheModule()
{
    TestElement element(*_module, "alice", ReadOperation | UpdateOperation);
    ElementData data;
    data.setName("record");

    element.performOperation(UpdateOperation, &data, 3);
    element.performOperation(OperationType(0x100000), nullptr, 0); // a plug-in's own bit

    QCOMPARE(_log, QStringList({"alice:40:record:3", "alice:100000:null:0"}));

    // A form in create role hands its own data to the module with itself as context.
    UserWidget widget(*_module);
    widget.setElement(nullptr, CreateRole);
    _log.clear();
    widget.applyContentChanges();
    QCOMPARE(_log, QStringList({"widget:4:null:0"}));
}

void tst_Element::elementWidgetByRole()
{
    auto *widget = new UserWidget(*_module);
    _module->insertElementWidget(widget);
    TestElement runtime(*_module, "runtime");
    TestElement fixed(*_module, "fixed", NoOperation, nullptr, 1);

    QCOMPARE(runtime.elementWidget(CreateRole), widget);
    QCOMPARE(runtime.elementWidget(ViewEditRole), widget);
    QCOMPARE(fixed.elementWidget(CreateRole), nullptr);
    QCOMPARE(fixed.elementWidget(ViewEditRole), widget);
    QVERIFY(runtime.elementActions().isEmpty());
    QCOMPARE(runtime.questionForRemove(), QString("Do you really want to remove this element?"));
    QCOMPARE(runtime.displayChildrenVariant(), 0);
    QVERIFY(runtime.displayChildrenVariants().isEmpty());
}

void tst_Element::ownsItsData()
{
    // An ElementData subclass that reports its own deletion.
    struct Record : ElementData
    {
        explicit Record(bool *deleted)
            : _deleted(deleted)
        { }
        ~Record() override { *_deleted = true; }
        bool *_deleted;
    };
    bool deleted = false;
    {
        ElementRootTreeNode root;
        auto *element = new TestElement(*_module, "alice");
        element->setElementData(new Record(&deleted));
        root.append(element);
        _log.clear();
        delete element;
        QCOMPARE(root.childNodesCount(), 0);
        QCOMPARE(_log, QStringList({"alice:2:null:0"}));
    }
    QVERIFY(deleted);
}

void tst_Element::rootHeader()
{
    ElementRootTreeNode root;
    QCOMPARE(root.columnCount(), 1);
    QCOMPARE(root.expectedDepth(), 0);
    QCOMPARE(root.headerData(0, Qt::Horizontal).toString(), QString("Name"));
    QVERIFY(!root.headerData(0, Qt::Vertical).isValid());
    QVERIFY(!root.headerData(1, Qt::Horizontal).isValid());
    QVERIFY(!root.headerData(0, Qt::Horizontal, Qt::ToolTipRole).isValid());
}

QTEST_MAIN(tst_Element)
#include "tst_element.moc"
