#include "signalrecorder.h"
#include "treenode/confroottreenode.h"
#include "treenode/conftreenode.h"
#include "treenode/treenode.h"
#include "treestring.h"

#include <QPointer>
#include <QtTest>

#include <memory>

using namespace OvtTest;

class TstTreeNode : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void insertRemove_data();
    void insertRemove();
    void removedNodeNoLongerReportsToFormerParent();
    void signalsReachRootWithTheirArguments();
    void directChildLookups_data();
    void directChildLookups();
    void takingOutDetachesChildren_data();
    void takingOutDetachesChildren();
    void clearDelete_data();
    void clearDelete();
    void allChildNodesIsBreadthFirst();
    void loadTreeFromList_data();
    void loadTreeFromList();
    void loadTreeFromListSignals();
    void loadTreeFromListWithDuplicateIdsUsesOneParent();
    void confNodes();

private:
    TreeNode *find(const QString &id) const;
    QList<TreeNode *> loadNodes(const QString &description);

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
};

void TstTreeNode::init()
{
    _owner = std::make_unique<QObject>();
    TestNode::afterLoadLog().clear();
}

void TstTreeNode::cleanup()
{
    _owner.reset();
    _root = nullptr;
}

TreeNode *TstTreeNode::find(const QString &id) const
{
    if (id == QLatin1String("root"))
        return _root;
    for (TreeNode *node : _root->allChildNodes()) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

// "depth:parentId:id" items separated by blanks, in input order.
QList<TreeNode *> TstTreeNode::loadNodes(const QString &description)
{
    QList<TreeNode *> nodes;
    for (const QString &item : words(description)) {
        const QStringList parts = item.split(QLatin1Char(':'));
        nodes.append(new TestNode(parts.at(0).toInt(), parts.at(1), parts.at(2), _owner.get()));
    }
    return nodes;
}

void TstTreeNode::insertRemove_data()
{
    // change: "insert <parent> <pos> <nodes>" or "remove <parent> <pos> <count>".
    columns({"tree", "change", "expectedTree", "expectedSignals"});
    const QString five = QStringLiteral("[a b c d e]; ");
    row("insert clamps negative position to front",
        "[a b]; insert root -5 x y; [x y a b]; aboutToBeInserted(root,0,1) inserted");
    row("insert at zero goes to front",
        "[a b]; insert root 0 x y; [x y a b]; aboutToBeInserted(root,0,1) inserted");
    row("insert in the middle keeps list order",
        "[a b c]; insert root 2 x y; [a b x y c]; aboutToBeInserted(root,2,3) inserted");
    row("insert clamps large position to end",
        "[a b]; insert root 1000 x; [a b x]; aboutToBeInserted(root,2,2) inserted");
    row("insert of nothing emits nothing", "[a b]; insert root 1; [a b];");
    row("insert deep in the tree is heard at the root",
        "[a[a1[a11]] b]; insert a1 1 x[x1]; [a[a1[a11 x[x1]]] b]; aboutToBeInserted(a1,1,1) "
        "inserted");
    row("insert into an empty node",
        "[a b]; insert b -1 x; [a b[x]]; aboutToBeInserted(b,0,0) inserted");
    row("remove clamps count to the end",
        five + "remove root 2 10; [a b]; aboutToBeRemoved(root,2,4) removed");
    row("remove one in the middle",
        five + "remove root 1 1; [a c d e]; aboutToBeRemoved(root,1,1) removed");
    row("remove everything from the front",
        five + "remove root 0 5; []; aboutToBeRemoved(root,0,4) removed");
    row("remove at the end position does nothing", five + "remove root 5 1; " + five);
    row("remove at a negative position does nothing", five + "remove root -1 3; " + five);
    row("remove of zero nodes does nothing", five + "remove root 0 0; " + five);
    row("remove from a childless node does nothing", five + "remove a 0 1; " + five);
    row("remove deep in the tree is heard at the root",
        "[a[a1[a11 a12]]]; remove a1 1 1; [a[a1[a11]]]; aboutToBeRemoved(a1,1,1) removed");
}

void TstTreeNode::insertRemove()
{
    QFETCH(QString, tree);
    QFETCH(QString, change);
    QFETCH(QString, expectedTree);
    QFETCH(QString, expectedSignals);

    _root = buildTree(tree, _owner.get());
    const QStringList args = words(change);
    TreeNode *parent = find(args.at(1));
    const QList<TreeNode *> before = parent->childNodes();
    const QList<TreeNode *> inserted = buildNodes(args.mid(3).join(' '), _owner.get());
    TreeNodeSignalRecorder recorder(_root);
    if (args.first() == QLatin1String("insert"))
        parent->insert(args.at(2).toInt(), inserted);
    else
        parent->removeAt(args.at(2).toInt(), args.at(3).toInt());

    QCOMPARE(treeToString(_root), expectedTree);
    QCOMPARE(recorder.recorded(), words(expectedSignals));
    // Inserted children know their parent; removed ones are detached, never deleted.
    for (TreeNode *node : before + inserted)
        QCOMPARE(node->parentNode(), parent->contains(node) ? parent : nullptr);
}

void TstTreeNode::removedNodeNoLongerReportsToFormerParent()
{
    _root = buildTree("[a[a1] b]", _owner.get());
    TreeNode *a = find("a");
    TreeNode *a1 = find("a1");
    TreeNodeSignalRecorder recorder(_root);
    _root->removeOne(a);
    recorder.clear();

    a1->emitNodeDataChanged();
    a->append(new TestNode("x", _owner.get()));
    QCOMPARE(recorder.recorded(), QStringList());

    // Once back in the tree, it reports again.
    _root->append(a);
    recorder.clear();
    a1->emitNodeDataChanged();
    QCOMPARE(recorder.recorded(), QStringList {"dataChanged(a1)"});
}

void TstTreeNode::signalsReachRootWithTheirArguments()
{
    _root = buildTree("[a[a1[a11[a111]]] b]", _owner.get());
    TreeNodeSignalRecorder atRoot(_root);
    TreeNodeSignalRecorder atSibling(find("b"));
    find("a111")->emitNodeDataChanged();
    find("a1")->emitNodeChildsDataChanged();
    find("a11")->emitSetCurrentNode();
    find("a")->emitExpandCurrentNode();
    QCOMPARE(atRoot.recorded(),
             (QStringList {"dataChanged(a111)", "childsDataChanged(a1)", "setCurrent(a11)",
                           "expand(a)"}));
    QCOMPARE(atSibling.recorded(), QStringList());
}

void TstTreeNode::directChildLookups_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("indexOf");

    QTest::newRow("direct child") << "b" << 0 << 1;
    QTest::newRow("grandchild is not a child") << "a1" << 0 << -1;
    QTest::newRow("search starting after the child") << "b" << 2 << -1;
    QTest::newRow("negative from counts from the end") << "c" << -1 << 2;
    QTest::newRow("negative from past the end is clamped to zero") << "a" << -10 << 0;
    QTest::newRow("root is not its own child") << "root" << 0 << -1;
}

void TstTreeNode::directChildLookups()
{
    QFETCH(QString, node);
    QFETCH(int, from);
    QFETCH(int, indexOf);

    _root = buildTree("[a[a1] b c]", _owner.get());
    TreeNode *target = find(node);
    const bool child = node.size() == 1;
    QCOMPARE(_root->contains(target), child);
    QCOMPARE(_root->indexOf(target, from), indexOf);

    TreeNodeSignalRecorder recorder(_root);
    QCOMPARE(_root->removeOne(target), child);
    QCOMPARE(recorder.recorded().isEmpty(), !child);
    if (!child)
        QCOMPARE(treeToString(_root), QStringLiteral("[a[a1] b c]"));
}

void TstTreeNode::takingOutDetachesChildren_data()
{
    QTest::addColumn<bool>("destroy");
    QTest::newRow("reset") << false;
    QTest::newRow("destruction") << true;
}

void TstTreeNode::takingOutDetachesChildren()
{
    QFETCH(bool, destroy);

    _root = buildTree("[a b[b1 b2] c]", _owner.get());
    TreeNode *b = find("b");
    TreeNode *b1 = find("b1");
    TreeNodeSignalRecorder recorder(_root);
    if (destroy) {
        delete b;
    } else {
        b->reset();
        QCOMPARE(b->parentNode(), nullptr);
        QCOMPARE(b->childNodesCount(), 0);
    }
    QCOMPARE(treeToString(_root), QStringLiteral("[a c]"));
    QCOMPARE(b1->parentNode(), nullptr);
    // b left the tree first, so its own clearing is not heard at the root.
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,1,1)", "removed"}));
}

void TstTreeNode::clearDelete_data()
{
    QTest::addColumn<bool>("all");
    QTest::addColumn<bool>("siblingOwned");
    QTest::newRow("clearDelete deletes only the children") << false << false;
    QTest::newRow("clearDeleteAll deletes the whole subtree") << true << false;
    QTest::newRow("clearDelete: a child deleted by its sibling is deleted once") << false << true;
    QTest::newRow("clearDeleteAll: a child deleted by its sibling is deleted once") << true << true;
}

void TstTreeNode::clearDelete()
{
    QFETCH(bool, all);
    QFETCH(bool, siblingOwned);

    _root = buildTree("[a[a1[a11]] b]", _owner.get());
    if (siblingOwned)
        find("b")->setParent(find("a"));
    QList<QPointer<TreeNode>> guards;
    for (TreeNode *node : _root->allChildNodes())
        guards.append(node);
    TreeNodeSignalRecorder recorder(_root);
    all ? _root->clearDeleteAll() : _root->clearDelete();

    QStringList alive;
    for (const QPointer<TreeNode> &guard : guards) {
        if (guard)
            alive.append(guard->id() + (guard->parentNode() ? "+" : ""));
    }
    // Grandchildren left alive are detached from their deleted parents; a11 stays under a1.
    QCOMPARE(alive, all ? QStringList() : (QStringList {"a1", "a11+"}));
    QCOMPARE(_root->childNodesCount(), 0);
    // Children are detached with signals before any is deleted.
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,0,1)", "removed"}));
}

void TstTreeNode::allChildNodesIsBreadthFirst()
{
    _root = buildTree("[a[a1[a11] a2] b[b1]]", _owner.get());
    QStringList ids;
    for (TreeNode *node : _root->allChildNodes())
        ids.append(node->id());
    QCOMPARE(ids, (QStringList {"a", "b", "a1", "a2", "b1", "a11"}));
    QCOMPARE(find("a11")->allChildNodes(), QList<TreeNode *>());
}

void TstTreeNode::loadTreeFromList_data()
{
    // input: depth:expectedParentId:id, in input order.
    columns({"input", "expectedTree", "expectedAfterLoad", "leftOut"});
    row("siblings sorted by id whatever the input order", "1::b 1::a; [a b]; a b;");
    row("id order is case-sensitive, then by length",
        "1::b 1::ab 1::a 1::B; [B a ab b]; B a ab b;");
    row("children under their parents, attached by depth then id",
        "2:b:b1 2:a:a2 1::b 2:a:a1 1::a 3:a1:a11; [a[a1[a11] a2] b[b1]]; a b a1 a2 b1 a11;");
    row("unknown parent id is left out", "1::a 2:zz:x 2:a:a1; [a[a1]]; a a1; x");
    row("children of an unmatched node stay out",
        "1:nope:a 2:a:a1 3:a1:a11 1::b; [b]; b; a a1 a11");
    row("node skipping a level finds no parent", "1::a 3:a:x; [a]; a; x");
    row("parent two runs back is no candidate", "1::a 2:a:b 3:a:c; [a[b]]; a b; c");
    row("level gap after the root leaves everything out", "2::a 3:a:b; [];; a b");
    row("node at the root's own depth is left out", "0::x 1::a; [a]; a; x");
    row("node above the root's depth blocks the first level", "1::a -1::x; [];; a x");
    row("empty list leaves an empty tree", "; [];;");
}

void TstTreeNode::loadTreeFromList()
{
    QFETCH(QString, input);
    QFETCH(QString, expectedTree);
    QFETCH(QString, expectedAfterLoad);
    QFETCH(QString, leftOut);

    _root = new TestNode(0, QString(), QString(), _owner.get());
    const QList<TreeNode *> nodes = loadNodes(input);
    _root->loadTreeFromList(nodes);

    QCOMPARE(treeToString(_root), expectedTree);
    QCOMPARE(TestNode::afterLoadLog(), words(expectedAfterLoad));
    QCOMPARE(_root->afterLoadCalls(), 0);
    for (TreeNode *node : nodes) {
        const bool out = words(leftOut).contains(node->id());
        QCOMPARE(node->parentNode() == nullptr, out);
        QCOMPARE(static_cast<TestNode *>(node)->afterLoadCalls(), out ? 0 : 1);
        if (out)
            QCOMPARE(node->childNodesCount(), 0);
    }
}

void TstTreeNode::loadTreeFromListSignals()
{
    _root = new TestNode(0, QString(), QStringLiteral("root"), _owner.get());
    const QList<TreeNode *> old = buildNodes("old[o1]", _owner.get());
    _root->append(old);
    TreeNodeSignalRecorder recorder(_root);
    _root->loadTreeFromList(loadNodes("2:a:a1 1:root:b 1:root:a"));

    // Only the root is cleared: an old node is detached with its own subtree.
    QCOMPARE(old.first()->parentNode(), nullptr);
    QCOMPARE(treeToString(old.first()), QStringLiteral("[o1]"));
    QCOMPARE(recorder.recorded(),
             (QStringList {"aboutToBeRemoved(root,0,0)", "removed", "aboutToBeInserted(root,0,0)",
                           "inserted", "aboutToBeInserted(root,1,1)", "inserted",
                           "aboutToBeInserted(a,0,0)", "inserted"}));
}

void TstTreeNode::loadTreeFromListWithDuplicateIdsUsesOneParent()
{
    _root = new TestNode(0, QString(), QString(), _owner.get());
    const QList<TreeNode *> nodes = loadNodes("1::a 1::a 2:a:x 2:a:y");
    _root->loadTreeFromList(nodes);

    QCOMPARE(_root->childNodesCount(), 2);
    const int first = nodes.at(0)->childNodesCount();
    const int second = nodes.at(1)->childNodesCount();
    QVERIFY2((first == 2 && second == 0) || (first == 0 && second == 2),
             "both children must hang under the same one of the equal candidates");
}

void TstTreeNode::confNodes()
{
    ConfTreeNode node(QStringLiteral("port"), QStringLiteral("5432"));
    QCOMPARE(node.id(), QStringLiteral("Conf_port_5432"));
    QCOMPARE(node.data(1, Qt::DisplayRole), QVariant("5432"));
    QCOMPARE(node.data(0, Qt::ToolTipRole), QVariant("port"));
    // The base node answers its id and expected parent id in any column; a row does not.
    QCOMPARE(node.data(0, Qt::UserRole + 2), QVariant());
    TreeNode plain(3, QStringLiteral("up"));
    QCOMPARE(plain.data(5, Qt::UserRole + 3), QVariant(QStringLiteral("up")));

    // A configuration root holds two columns and deletes its whole subtree.
    auto *root = new ConfRootTreeNode;
    QCOMPARE(root->headerData(1, Qt::Horizontal, Qt::DisplayRole),
             QVariant(QCoreApplication::translate("ConfRootTreeNode", "Value")));
    QPointer<TreeNode> port = new ConfTreeNode(QStringLiteral("port"), QStringLiteral("5432"));
    QPointer<TreeNode> host = new ConfTreeNode(QStringLiteral("host"), QStringLiteral("db"));
    QPointer<TreeNode> below = new TestNode(2, QStringLiteral("Conf_host_db"), "below");
    root->loadTreeFromList({port, host, below});
    QCOMPARE(treeToString(root), QStringLiteral("[Conf_host_db[below] Conf_port_5432]"));
    delete root;
    QVERIFY(port.isNull() && host.isNull() && below.isNull());
}

QTEST_GUILESS_MAIN(TstTreeNode)

#include "tst_treenode.moc"
