#include "element/element.h"
#include "element/elementdata.h"
#include "element/elementroottreenode.h"
#include "plugin/module.h"
#include "widgets/vieweditelementwidget.h"

#include <QSignalSpy>
#include <QTest>

namespace {

// Logs every operation that reaches it as "<title>:<operation in hex>".
class LogModule : public Module
{
public:
    LogModule()
        : Module(QStringLiteral("log"), nullptr, false)
    { }
    void performOperation(ContextOperation *context, OperationType type, ElementData *,
                          int) override
    {
        log << QStringLiteral("%1:%2")
                   .arg(context->elementContext()->title())
                   .arg(quint64(type), 0, 16);
    }
    QStringList log;
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
        setTitle(title);
        _expectedDepth = depth;
    }
    QString caption() const override { return QStringLiteral("Caption of ") + title(); }
    OperationType availableOperations() const override { return _offered; }
    void performOperation(OperationType type, ElementData *data, int alternative) override
    {
        module().performOperation(this, type, data, alternative);
    }
    bool &requireLoad() { return _requireLoad; }
    QString &group() { return _groupElementType; }

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

} // namespace

class tst_Element : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { _module = std::make_unique<LogModule>(); }
    void cleanup() { _module.reset(); }

    void roles_data();
    void roles();
    void titleAndId_data();
    void titleAndId();
    void lazyLoading_data();
    void lazyLoading();
    void treeNotifiesModules_data();
    void treeNotifiesModules();
    void editableAndWidgets();
    void ownsItsData();
    void rootHeader();

private:
    std::unique_ptr<LogModule> _module;
};

void tst_Element::roles_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("title role, any column") << 3 << 260 << QVariant("leaf");
    QTest::newRow("element type role") << 0 << 261 << QVariant("user");
    QTest::newRow("own group type, not the inherited one") << 0 << 262 << QVariant("Undefined");
    QTest::newRow("display") << 0 << int(Qt::DisplayRole) << QVariant("leaf");
    QTest::newRow("no display in other columns") << 1 << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("tool tip is the caption")
        << 0 << int(Qt::ToolTipRole) << QVariant("Caption of leaf");
    QTest::newRow("id role from the tree") << 0 << 258 << QVariant("user_leaf");
}

void tst_Element::roles()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);

    TestElement top(*_module, "top"), middle(*_module, "middle");
    auto *leaf = new TestElement(*_module, "leaf");
    top.append(&middle);
    middle.append(leaf);
    top.group() = "accounts";

    QCOMPARE(leaf->data(column, role), expected);
    QCOMPARE(leaf->columnCount(), 1);
    QVERIFY(leaf->data(0, Qt::DecorationRole).value<QIcon>().isNull());
    // The nearest group set on the element or an element above it.
    QCOMPARE(leaf->groupElementType(), QString("accounts"));
    middle.group() = "people";
    QCOMPARE(leaf->groupElementType(), QString("people"));
    middle.clear();
    QCOMPARE(leaf->groupElementType(), QString("Undefined"));
    delete leaf;
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
    QSignalSpy spy(&element, &TreeNode::nodeDataChanged);
    element.setTitle("bob");
    QCOMPARE(element.title(), title);
    QCOMPARE(element.id(), id);
    QCOMPARE(spy.count(), changes);
}

void tst_Element::lazyLoading_data()
{
    QTest::addColumn<bool>("requireLoad");
    QTest::addColumn<quint64>("offered");
    QTest::addColumn<bool>("canFetch");
    QTest::addColumn<QStringList>("log");
    QTest::addColumn<bool>("requireLoadAfter");

    QTest::newRow("pending and readable: reads once")
        << true << quint64(ReadContentOperation) << true << QStringList {"box:8"} << false;
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
    box.requireLoad() = requireLoad;
    QCOMPARE(box.canFetchMore(), canFetch);
    box.fetchMore();
    box.fetchMore(); // a view asking again while the read runs starts nothing more
    QCOMPARE(_module->log, log);
    QCOMPARE(box.requireLoad(), requireLoadAfter);
}

void tst_Element::treeNotifiesModules_data()
{
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("left");
    QTest::addColumn<QStringList>("removed");

    QTest::newRow("count cut to the end")
        << 5 << 10 << "e0 e1 e2 - e4" << QStringList {"e5:2", "e6:2"};
    QTest::newRow("plain nodes go without notice")
        << 2 << 2 << "e0 e1 e4 e5 e6" << QStringList {"e2:2"};
    QTest::newRow("position at the end does nothing")
        << 7 << 1 << "e0 e1 e2 - e4 e5 e6" << QStringList();
    QTest::newRow("zero count does nothing") << 0 << 0 << "e0 e1 e2 - e4 e5 e6" << QStringList();
    QTest::newRow("negative position does nothing")
        << -1 << 2 << "e0 e1 e2 - e4 e5 e6" << QStringList();
}

void tst_Element::treeNotifiesModules()
{
    QFETCH(int, pos);
    QFETCH(int, count);
    QFETCH(QString, left);
    QFETCH(QStringList, removed);

    // Elements and the element root share the rules.
    for (bool underRoot : {false, true}) {
        ElementRootTreeNode root;
        TestElement element(*_module, "parent");
        TreeNode *parent = underRoot ? static_cast<TreeNode *>(&root) : &element;
        QList<TreeNode *> children;
        QStringList inserted;
        for (int i = 0; i < 7; ++i) {
            if (i == 3) {
                children << new TreeNode(_module.get()); // a node that is no element
                continue;
            }
            children << new TestElement(*_module, QStringLiteral("e%1").arg(i));
            inserted << QStringLiteral("e%1:1").arg(i);
        }
        _module->log.clear();
        parent->insert(0, children.mid(1));
        parent->insert(0, children.first()); // the single-node form too
        QCOMPARE(_module->log, inserted.mid(1) << inserted.first());

        _module->log.clear();
        parent->removeAt(pos, count);
        QStringList shown;
        for (TreeNode *child : parent->childNodes())
            shown << (child->id().isEmpty() ? QStringLiteral("-") : child->id().mid(5));
        QCOMPARE(shown.join(' '), left);
        QCOMPARE(_module->log, removed);
        parent->clear();
    }
}

void tst_Element::editableAndWidgets()
{
    auto *widget = new UserWidget(*_module);
    _module->insertElementWidget(widget);
    TestElement runtime(*_module, "runtime", NoOperation, &Module::defaultTrue);
    TestElement fixed(*_module, "fixed", NoOperation, nullptr, 1);

    QVERIFY(runtime.isEditable());
    QVERIFY(!fixed.isEditable()); // no callback: never editable
    QCOMPARE(runtime.elementContext(), &runtime);
    QCOMPARE(runtime.elementWidgetContext(), nullptr);
    QCOMPARE(runtime.QObject::parent(), _module.get());
    QCOMPARE(runtime.elementWidget(CreateRole), widget);
    QCOMPARE(fixed.elementWidget(CreateRole), nullptr);
    QCOMPARE(fixed.elementWidget(ViewEditRole), widget);
    QCOMPARE(runtime.questionForRemove(), QString("Do you really want to remove this element?"));
}

void tst_Element::ownsItsData()
{
    struct Record : ElementData
    {
        explicit Record(bool *deleted)
            : _deleted(deleted)
        { }
        ~Record() override { *_deleted = true; }
        bool *_deleted;
    };
    bool deleted = false;
    ElementRootTreeNode root;
    auto *element = new TestElement(*_module, "alice");
    element->setElementData(new Record(&deleted));
    root.append(element);
    _module->log.clear();
    delete element;
    QCOMPARE(root.childNodesCount(), 0);
    QCOMPARE(_module->log, QStringList {"alice:2"});
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
