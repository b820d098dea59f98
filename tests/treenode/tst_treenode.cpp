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

    void insert_data();
    void insert();
    void removeAt_data();
    void removeAt();
    void removedNodeNoLongerReportsToFormerParent();
    void signalsReachRootWithTheirArguments_data();
    void signalsReachRootWithTheirArguments();
    void directChildLookups_data();
    void directChildLookups();
    void resetTakesNodeOutAndDetachesChildren();
    void destroyedNodeLeavesItsParent();
    void allChildNodesIsBreadthFirst();
    void clearDeleteDeletesOnlyChildren();
    void clearDeleteAllDeletesWholeSubtree();
    void loadTreeFromList_data();
    void loadTreeFromList();
    void loadTreeFromListSignals();
    void loadTreeFromListReloadDetachesOldNodes();
    void loadTreeFromListWithDuplicateIdsUsesOneParent();
    void baseNodeDefaults();
    void confNodes_data();
    void confNodes();
    void confRootDeletesSubtree();

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
    const QList<TreeNode *> nodes = _root->allChildNodes();
    for (TreeNode *node : nodes) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

// "depth:parentId:id" items separated by blanks, in input order.
QList<TreeNode *> TstTreeNode::loadNodes(const QString &description)
{
    QList<TreeNode *> nodes;
    const QStringList items = description.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    for (const QString &item : items) {
        const QStringList parts = item.split(QLatin1Char(':'));
        nodes.append(new TestNode(parts.at(0).toInt(), parts.at(1), parts.at(2), _owner.get()));
    }
    return nodes;
}

void TstTreeNode::insert_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("pos");
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("expectedTree");
    QTest::addColumn<QStringList>("expectedSignals");

    const QStringList twoAtFront {"aboutToBeInserted(root,0,1)", "inserted"};
    QTest::newRow("insert clamps negative position to front") << "[a b]"
                                                              << "root" << -5 << "x y"
                                                              << "[x y a b]" << twoAtFront;
    QTest::newRow("insert at zero goes to front") << "[a b]"
                                                  << "root" << 0 << "x y"
                                                  << "[x y a b]" << twoAtFront;
    QTest::newRow("insert in the middle keeps list order")
        << "[a b c]"
        << "root" << 2 << "x y"
        << "[a b x y c]" << QStringList {"aboutToBeInserted(root,2,3)", "inserted"};
    QTest::newRow("insert clamps large position to end")
        << "[a b]"
        << "root" << 1000 << "x"
        << "[a b x]" << QStringList {"aboutToBeInserted(root,2,2)", "inserted"};
    QTest::newRow("insert into a leaf") << "[a]"
                                        << "root" << 3 << "x"
                                        << "[a]" << QStringList();
    QTest::newRow("insert of nothing emits nothing") << "[a b]"
                                                     << "root" << 1 << ""
                                                     << "[a b]" << QStringList();
    QTest::newRow("insert deep in the tree is heard at the root")
        << "[a[a1[a11]] b]"
        << "a1" << 1 << "x[x1]"
        << "[a[a1[a11 x[x1]]] b]" << QStringList {"aboutToBeInserted(a1,1,1)", "inserted"};
    QTest::newRow("insert into an empty node")
        << "[a b]"
        << "b" << -1 << "x"
        << "[a b[x]]" << QStringList {"aboutToBeInserted(b,0,0)", "inserted"};
}

void TstTreeNode::insert()
{
    QFETCH(QString, tree);
    QFETCH(QString, parent);
    QFETCH(int, pos);
    QFETCH(QString, nodes);
    QFETCH(QString, expectedTree);
    QFETCH(QStringList, expectedSignals);

    _root = buildTree(tree, _owner.get());
    TreeNode *parentNode = find(parent);
    QVERIFY(parentNode);
    if (QTest::currentDataTag() == QLatin1String("insert into a leaf")) {
        // Inserting into a node that is not yet in the tree: nothing is heard at the root.
        auto *leaf = new TestNode(QStringLiteral("leaf"), _owner.get());
        TreeNodeSignalRecorder recorder(_root);
        leaf->insert(pos, buildNodes(nodes, _owner.get()));
        QCOMPARE(treeToString(leaf), QStringLiteral("[x]"));
        QCOMPARE(recorder.recorded(), expectedSignals);
        return;
    }
    const QList<TreeNode *> inserted = buildNodes(nodes, _owner.get());
    TreeNodeSignalRecorder recorder(_root);
    parentNode->insert(pos, inserted);

    QCOMPARE(treeToString(_root), expectedTree);
    QCOMPARE(recorder.recorded(), expectedSignals);
    for (TreeNode *node : inserted)
        QCOMPARE(node->parentNode(), parentNode);
}

void TstTreeNode::removeAt_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<QString>("parent");
    QTest::addColumn<int>("pos");
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("expectedTree");
    QTest::addColumn<QStringList>("expectedSignals");

    const QString five = QStringLiteral("[a b c d e]");
    QTest::newRow("remove clamps count to the end")
        << five << "root" << 2 << 10 << "[a b]"
        << QStringList {"aboutToBeRemoved(root,2,4)", "removed"};
    QTest::newRow("remove one in the middle")
        << five << "root" << 1 << 1 << "[a c d e]"
        << QStringList {"aboutToBeRemoved(root,1,1)", "removed"};
    QTest::newRow("remove everything from the front")
        << five << "root" << 0 << 5 << "[]"
        << QStringList {"aboutToBeRemoved(root,0,4)", "removed"};
    QTest::newRow("remove at the end position does nothing")
        << five << "root" << 5 << 1 << five << QStringList();
    QTest::newRow("remove at a negative position does nothing")
        << five << "root" << -1 << 3 << five << QStringList();
    QTest::newRow("remove of zero nodes does nothing")
        << five << "root" << 0 << 0 << five << QStringList();
    QTest::newRow("remove from a childless node does nothing")
        << five << "a" << 0 << 1 << five << QStringList();
    QTest::newRow("remove deep in the tree is heard at the root")
        << "[a[a1[a11 a12]]]"
        << "a1" << 1 << 1 << "[a[a1[a11]]]" << QStringList {"aboutToBeRemoved(a1,1,1)", "removed"};
}

void TstTreeNode::removeAt()
{
    QFETCH(QString, tree);
    QFETCH(QString, parent);
    QFETCH(int, pos);
    QFETCH(int, count);
    QFETCH(QString, expectedTree);
    QFETCH(QStringList, expectedSignals);

    _root = buildTree(tree, _owner.get());
    TreeNode *parentNode = find(parent);
    const QList<TreeNode *> before = parentNode->childNodes();
    TreeNodeSignalRecorder recorder(_root);
    parentNode->removeAt(pos, count);

    QCOMPARE(treeToString(_root), expectedTree);
    QCOMPARE(recorder.recorded(), expectedSignals);
    for (TreeNode *node : before) {
        // Removed children are detached, never deleted.
        QCOMPARE(node->parentNode(), parentNode->contains(node) ? parentNode : nullptr);
    }
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

void TstTreeNode::signalsReachRootWithTheirArguments_data()
{
    QTest::addColumn<QString>("emitter");
    QTest::addColumn<int>("which");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("data change of a leaf three levels down")
        << "a111" << 0 << QStringList {"dataChanged(a111)"};
    QTest::newRow("children's data change") << "a1" << 1 << QStringList {"childsDataChanged(a1)"};
    QTest::newRow("current node") << "a11" << 2 << QStringList {"setCurrent(a11)"};
    QTest::newRow("expand node") << "a" << 3 << QStringList {"expand(a)"};
}

void TstTreeNode::signalsReachRootWithTheirArguments()
{
    QFETCH(QString, emitter);
    QFETCH(int, which);
    QFETCH(QStringList, expected);

    _root = buildTree("[a[a1[a11[a111]]] b]", _owner.get());
    TreeNode *node = find(emitter);
    TreeNodeSignalRecorder atRoot(_root);
    TreeNodeSignalRecorder atSibling(find("b"));
    switch (which) {
    case 0:
        node->emitNodeDataChanged();
        break;
    case 1:
        node->emitNodeChildsDataChanged();
        break;
    case 2:
        node->emitSetCurrentNode();
        break;
    default:
        node->emitExpandCurrentNode();
        break;
    }
    QCOMPARE(atRoot.recorded(), expected);
    QCOMPARE(atSibling.recorded(), QStringList());
}

void TstTreeNode::directChildLookups_data()
{
    QTest::addColumn<QString>("node");
    QTest::addColumn<int>("from");
    QTest::addColumn<bool>("contains");
    QTest::addColumn<int>("indexOf");

    QTest::newRow("direct child") << "b" << 0 << true << 1;
    QTest::newRow("grandchild is not a child") << "a1" << 0 << false << -1;
    QTest::newRow("search starting after the child") << "b" << 2 << true << -1;
    QTest::newRow("negative from counts from the end") << "c" << -1 << true << 2;
    QTest::newRow("negative from past the end is clamped to zero") << "a" << -10 << true << 0;
    QTest::newRow("root is not its own child") << "root" << 0 << false << -1;
}

void TstTreeNode::directChildLookups()
{
    QFETCH(QString, node);
    QFETCH(int, from);
    QFETCH(bool, contains);
    QFETCH(int, indexOf);

    _root = buildTree("[a[a1] b c]", _owner.get());
    TreeNode *target = find(node);
    QCOMPARE(_root->contains(target), contains);
    QCOMPARE(_root->indexOf(target, from), indexOf);

    TreeNodeSignalRecorder recorder(_root);
    QCOMPARE(_root->removeOne(target), contains);
    QCOMPARE(recorder.recorded().isEmpty(), !contains);
    if (!contains)
        QCOMPARE(treeToString(_root), QStringLiteral("[a[a1] b c]"));
}

void TstTreeNode::resetTakesNodeOutAndDetachesChildren()
{
    _root = buildTree("[a b[b1 b2] c]", _owner.get());
    TreeNode *b = find("b");
    TreeNode *b1 = find("b1");
    TreeNodeSignalRecorder recorder(_root);
    b->reset();

    QCOMPARE(treeToString(_root), QStringLiteral("[a c]"));
    QCOMPARE(b->parentNode(), nullptr);
    QCOMPARE(b->childNodesCount(), 0);
    QCOMPARE(b1->parentNode(), nullptr);
    // b left the tree first, so its own clearing is not heard at the root.
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,1,1)", "removed"}));
}

void TstTreeNode::destroyedNodeLeavesItsParent()
{
    _root = buildTree("[a b[b1] c]", _owner.get());
    TreeNode *b1 = find("b1");
    TreeNodeSignalRecorder recorder(_root);
    delete find("b");

    QCOMPARE(treeToString(_root), QStringLiteral("[a c]"));
    QCOMPARE(b1->parentNode(), nullptr);
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,1,1)", "removed"}));
}

void TstTreeNode::allChildNodesIsBreadthFirst()
{
    _root = buildTree("[a[a1[a11] a2] b[b1]]", _owner.get());
    QStringList ids;
    const QList<TreeNode *> all = _root->allChildNodes();
    for (TreeNode *node : all)
        ids.append(node->id());
    QCOMPARE(ids, (QStringList {"a", "b", "a1", "a2", "b1", "a11"}));
    QCOMPARE(find("a11")->allChildNodes(), QList<TreeNode *>());
}

void TstTreeNode::clearDeleteDeletesOnlyChildren()
{
    _root = buildTree("[a[a1] b]", _owner.get());
    QPointer<TreeNode> a = find("a"), a1 = find("a1"), b = find("b");
    TreeNodeSignalRecorder recorder(_root);
    _root->clearDelete();

    QVERIFY(a.isNull());
    QVERIFY(b.isNull());
    QVERIFY(!a1.isNull());
    QCOMPARE(a1->parentNode(), nullptr);
    // Children are detached with signals before any is deleted.
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,0,1)", "removed"}));
}

void TstTreeNode::clearDeleteAllDeletesWholeSubtree()
{
    _root = buildTree("[a[a1[a11]] b]", _owner.get());
    const QList<TreeNode *> all = _root->allChildNodes();
    QList<QPointer<TreeNode>> guards;
    for (TreeNode *node : all)
        guards.append(node);
    TreeNodeSignalRecorder recorder(_root);
    _root->clearDeleteAll();

    for (const QPointer<TreeNode> &guard : guards)
        QVERIFY(guard.isNull());
    QCOMPARE(_root->childNodesCount(), 0);
    QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeRemoved(root,0,1)", "removed"}));
}

void TstTreeNode::loadTreeFromList_data()
{
    QTest::addColumn<QString>("input"); // depth:expectedParentId:id, in input order
    QTest::addColumn<QString>("expectedTree");
    QTest::addColumn<QStringList>("expectedAfterLoad");
    QTest::addColumn<QStringList>("leftOut");

    QTest::newRow("siblings sorted by id whatever the input order")
        << "1::b 1::a"
        << "[a b]" << QStringList {"a", "b"} << QStringList();
    QTest::newRow("id order is case-sensitive")
        << "1::b 1::a 1::B"
        << "[B a b]" << QStringList {"B", "a", "b"} << QStringList();
    QTest::newRow("children under their parents, attached by depth then id")
        << "2:b:b1 2:a:a2 1::b 2:a:a1 1::a 3:a1:a11"
        << "[a[a1[a11] a2] b[b1]]" << QStringList {"a", "b", "a1", "a2", "b1", "a11"}
        << QStringList();
    QTest::newRow("unknown parent id is left out")
        << "1::a 2:zz:x 2:a:a1"
        << "[a[a1]]" << QStringList {"a", "a1"} << QStringList {"x"};
    QTest::newRow("children of an unmatched node stay out")
        << "1:nope:a 2:a:a1 3:a1:a11 1::b"
        << "[b]" << QStringList {"b"} << QStringList {"a", "a1", "a11"};
    QTest::newRow("node skipping a level finds no parent")
        << "1::a 3:a:x"
        << "[a]" << QStringList {"a"} << QStringList {"x"};
    QTest::newRow("parent two runs back is no candidate")
        << "1::a 2:a:b 3:a:c"
        << "[a[b]]" << QStringList {"a", "b"} << QStringList {"c"};
    QTest::newRow("level gap after the root leaves everything out")
        << "2::a 3:a:b"
        << "[]" << QStringList() << QStringList {"a", "b"};
    QTest::newRow("node at the root's own depth is left out")
        << "0::x 1::a"
        << "[a]" << QStringList {"a"} << QStringList {"x"};
    QTest::newRow("node above the root's depth blocks the first level")
        << "1::a -1::x"
        << "[]" << QStringList() << QStringList {"a", "x"};
    QTest::newRow("empty list leaves an empty tree") << ""
                                                     << "[]" << QStringList() << QStringList();
}

void TstTreeNode::loadTreeFromList()
{
    QFETCH(QString, input);
    QFETCH(QString, expectedTree);
    QFETCH(QStringList, expectedAfterLoad);
    QFETCH(QStringList, leftOut);

    _root = new TestNode(0, QString(), QString(), _owner.get());
    const QList<TreeNode *> nodes = loadNodes(input);
    _root->loadTreeFromList(nodes);

    QCOMPARE(treeToString(_root), expectedTree);
    QCOMPARE(TestNode::afterLoadLog(), expectedAfterLoad);
    QCOMPARE(_root->afterLoadCalls(), 0);
    for (TreeNode *node : nodes) {
        auto *testNode = static_cast<TestNode *>(node);
        const bool out = leftOut.contains(node->id());
        QCOMPARE(node->parentNode() == nullptr, out);
        QCOMPARE(testNode->afterLoadCalls(), out ? 0 : 1);
        if (out)
            QCOMPARE(node->childNodesCount(), 0);
    }
}

void TstTreeNode::loadTreeFromListSignals()
{
    _root = new TestNode(0, QString(), QStringLiteral("root"), _owner.get());
    _root->append(buildNodes("old", _owner.get()));
    TreeNodeSignalRecorder recorder(_root);
    _root->loadTreeFromList(loadNodes("2:a:a1 1:root:b 1:root:a"));

    QCOMPARE(recorder.recorded(),
             (QStringList {"aboutToBeRemoved(root,0,0)", "removed", "aboutToBeInserted(root,0,0)",
                           "inserted", "aboutToBeInserted(root,1,1)", "inserted",
                           "aboutToBeInserted(a,0,0)", "inserted"}));
}

void TstTreeNode::loadTreeFromListReloadDetachesOldNodes()
{
    _root = new TestNode(0, QString(), QString(), _owner.get());
    const QList<TreeNode *> first = loadNodes("1::a 2:a:a1");
    _root->loadTreeFromList(first);
    const QList<TreeNode *> second = loadNodes("1::b");
    _root->loadTreeFromList(second);

    QCOMPARE(treeToString(_root), QStringLiteral("[b]"));
    QCOMPARE(first.at(0)->parentNode(), nullptr);
    // Only the root is cleared: the old nodes keep their own subtrees.
    QCOMPARE(treeToString(first.at(0)), QStringLiteral("[a1]"));
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

void TstTreeNode::baseNodeDefaults()
{
    TreeNode node(3, QStringLiteral("parentId"));
    node.setId(QStringLiteral("me"));
    TreeNode plain;

    QCOMPARE(plain.expectedDepth(), -1);
    QCOMPARE(node.expectedDepth(), 3);
    QCOMPARE(node.data(5, Qt::UserRole + 2), QVariant(QStringLiteral("me")));
    QCOMPARE(node.data(0, Qt::UserRole + 3), QVariant(QStringLiteral("parentId")));
    QCOMPARE(node.data(0, Qt::DisplayRole), QVariant());
    QCOMPARE(int(node.flags(7)), 33);
    QVERIFY(!node.setData(0, QStringLiteral("x"), Qt::EditRole));
    QCOMPARE(node.columnCount(), 0);
    QCOMPARE(node.treeNodeSpecialFlags(), 0);
    QCOMPARE(node.headerData(0, Qt::Horizontal, Qt::DisplayRole), QVariant());
    QVERIFY(!node.canFetchMore());
}

void TstTreeNode::confNodes_data()
{
    QTest::addColumn<int>("column");
    QTest::addColumn<int>("role");
    QTest::addColumn<QVariant>("expected");

    QTest::newRow("name in column 0") << 0 << int(Qt::DisplayRole) << QVariant("port");
    QTest::newRow("value in column 1") << 1 << int(Qt::DisplayRole) << QVariant("5432");
    QTest::newRow("tool tip of name") << 0 << int(Qt::ToolTipRole) << QVariant("port");
    QTest::newRow("tool tip of value") << 1 << int(Qt::ToolTipRole) << QVariant("5432");
    QTest::newRow("no third column") << 2 << int(Qt::DisplayRole) << QVariant();
    QTest::newRow("edit role not answered") << 0 << int(Qt::EditRole) << QVariant();
    QTest::newRow("id role not answered") << 0 << int(Qt::UserRole + 2) << QVariant();
}

void TstTreeNode::confNodes()
{
    QFETCH(int, column);
    QFETCH(int, role);
    QFETCH(QVariant, expected);

    ConfTreeNode node(QStringLiteral("port"), QStringLiteral("5432"));
    QCOMPARE(node.id(), QStringLiteral("Conf_port_5432"));
    QCOMPARE(node.expectedDepth(), 1);
    QCOMPARE(node.data(column, role), expected);
}

void TstTreeNode::confRootDeletesSubtree()
{
    auto *root = new ConfRootTreeNode;
    QCOMPARE(root->expectedDepth(), 0);
    QCOMPARE(root->columnCount(), 2);
    QCOMPARE(root->headerData(1, Qt::Vertical, Qt::DisplayRole), QVariant());
    QCOMPARE(root->headerData(2, Qt::Horizontal, Qt::DisplayRole), QVariant());
    QVERIFY(!root->headerData(0, Qt::Horizontal, Qt::DisplayRole).toString().isEmpty());

    QPointer<TreeNode> port = new ConfTreeNode(QStringLiteral("port"), QStringLiteral("5432"));
    QPointer<TreeNode> host = new ConfTreeNode(QStringLiteral("host"), QStringLiteral("db"));
    QPointer<TreeNode> below = new TestNode(2, QStringLiteral("Conf_host_db"), "below");
    root->loadTreeFromList({port, host, below});
    QCOMPARE(treeToString(root), QStringLiteral("[Conf_host_db[below] Conf_port_5432]"));

    delete root;
    QVERIFY(port.isNull());
    QVERIFY(host.isNull());
    QVERIFY(below.isNull());
}

QTEST_GUILESS_MAIN(TstTreeNode)

#include "tst_treenode.moc"
