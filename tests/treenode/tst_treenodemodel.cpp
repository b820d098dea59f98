#include "signalrecorder.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QAbstractItemModelTester>
#include <QPointer>
#include <QStringListModel>
#include <QtTest>

#include <memory>

using namespace OvtTest;

class TstTreeNodeModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void changes_data();
    void changes();
    void deletedNodeLosesItsRow();
    void nodeIndexRoundTrip();
    void foreignNodesAndIndexes();
    void selectionsGiveEachNodeOnce();
    void resetPairSwallowsReload();
    void rootAndExtraChanges();
    void emptyModels();
    void noExpanderFlagHidesChildren();
    void childrenOfAnyColumn();

private:
    TreeNode *find(const QString &id) const;
    void setUpTree(const QString &tree, const QString &extras = QString());

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNodeModel *_model = nullptr;
    ModelSignalRecorder *_recorder = nullptr;
};

void TstTreeNodeModel::init()
{
    _owner = std::make_unique<QObject>();
    _root = new TestNode(QStringLiteral("root"), _owner.get());
    _model = new TreeNodeModel(_root, _owner.get());
    new QAbstractItemModelTester(_model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 _model);
    _recorder = new ModelSignalRecorder(_model, _model);
}

void TstTreeNodeModel::cleanup()
{
    // The model goes first: the tree's teardown signals must not reach it.
    delete _model;
    _model = nullptr;
    _owner.reset();
}

TreeNode *TstTreeNodeModel::find(const QString &id) const
{
    if (id == QLatin1String("root"))
        return _root;
    QList<TreeNode *> nodes = _model->extraRootChildNodes();
    for (TreeNode *extra : _model->extraRootChildNodes())
        nodes += extra->allChildNodes();
    nodes += _root->allChildNodes();
    for (TreeNode *node : qAsConst(nodes)) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

void TstTreeNodeModel::setUpTree(const QString &tree, const QString &extras)
{
    _root->append(buildNodes(tree, _owner.get()));
    if (!extras.isEmpty())
        _model->setExtraRootChildNodes(buildNodes(extras, _owner.get()));
    _recorder->clear();
}

void TstTreeNodeModel::changes_data()
{
    // change: "insert <parent> <pos> <nodes>", "remove <parent> <pos> <count>", "data <node>",
    // "childs <node>" (its children's data), or nothing to read the tree as built.
    columns({"tree", "extras", "change", "expected", "expectedSignals"});
    row("nested tree", "a[a1[a11] a2] b;;; [a[a1[a11] a2] b];");
    row("extra nodes come first", "a b c; x y[y1];; [x y[y1] a b c];");
    row("extra nodes only", "; x;; [x];");
    row("insert at the front",
        "a b;; insert root 0 x y; [x y a b]; "
        "aboutToBeInserted(root,0,1) inserted(root,0,1)");
    row("insert in the middle",
        "a b c;; insert root 1 x; [a x b c]; "
        "aboutToBeInserted(root,1,1) inserted(root,1,1)");
    row("insert at the end by clamping",
        "a b;; insert root 99 x; [a b x]; "
        "aboutToBeInserted(root,2,2) inserted(root,2,2)");
    row("insert at the root's front is shifted past the extra nodes",
        "a b c; e f; insert root 0 x; [e f x a b c]; "
        "aboutToBeInserted(root,2,2) inserted(root,2,2)");
    row("insert into a nested node",
        "a[a1 a2] b;; insert a 1 x[x1]; [a[a1 x[x1] a2] b]; "
        "aboutToBeInserted(a,1,1) inserted(a,1,1)");
    row("insert below an extra node",
        "a; e[e1]; insert e1 0 x; [e[e1[x]] a]; aboutToBeInserted(e1,0,0) inserted(e1,0,0)");
    row("insert of nothing", "a;; insert a 0; [a];");
    row("clamped removal at the end",
        "a b c d e;; remove root 2 10; [a b]; "
        "aboutToBeRemoved(root,2,4) removed(root,2,4)");
    row("removal at the front with extra nodes is shifted",
        "a b; e f; remove root 0 1; [e f b]; aboutToBeRemoved(root,2,2) removed(root,2,2)");
    row("removal of a subtree",
        "a[a1[a11]] b;; remove root 0 1; [b]; "
        "aboutToBeRemoved(root,0,0) removed(root,0,0)");
    row("nested removal",
        "a[a1 a2 a3];; remove a 1 1; [a[a1 a3]]; aboutToBeRemoved(a,1,1) removed(a,1,1)");
    row("removal below an extra node",
        "a; e[e1 e2]; remove e 0 1; [e[e2] a]; aboutToBeRemoved(e,0,0) removed(e,0,0)");
    row("out-of-range removal is silent", "a b;; remove root 2 1; [a b];");
    const QString tree = QStringLiteral("a[a1 a2] b;");
    row("node data spans its row", tree + "; data a1; [a[a1 a2] b]; dataChanged(a1,0,a1,0)");
    row("children's data spans all children",
        tree + "; childs a; [a[a1 a2] b]; dataChanged(a1,0,a2,0)");
    row("root's children include the extra nodes",
        tree + " e; childs root; [e a[a1 a2] b]; dataChanged(e,0,b,0)");
    row("childless node reports nothing", tree + "; childs b; [a[a1 a2] b];");
    row("extra node's data", tree + " e; data e; [e a[a1 a2] b]; dataChanged(e,0,e,0)");
}

void TstTreeNodeModel::changes()
{
    QFETCH(QString, tree);
    QFETCH(QString, extras);
    QFETCH(QString, change);
    QFETCH(QString, expected);
    QFETCH(QString, expectedSignals);

    setUpTree(tree, extras);
    const QStringList args = words(change);
    const QString verb = args.value(0);
    if (verb == QLatin1String("insert"))
        find(args.at(1))
            ->insert(args.at(2).toInt(), buildNodes(args.mid(3).join(' '), _owner.get()));
    else if (verb == QLatin1String("remove"))
        find(args.at(1))->removeAt(args.at(2).toInt(), args.at(3).toInt());
    else if (verb == QLatin1String("data"))
        find(args.at(1))->emitNodeDataChanged();
    else if (verb == QLatin1String("childs"))
        find(args.at(1))->emitNodeChildsDataChanged();
    QCOMPARE(modelToString(_model), expected);
    QCOMPARE(_recorder->recorded(), words(expectedSignals));
}

void TstTreeNodeModel::deletedNodeLosesItsRow()
{
    setUpTree("a[a1 a2] b");
    const QPersistentModelIndex b = _model->treeNodeToIndex(find("b"));
    delete find("a1");
    QCOMPARE(modelToString(_model), QStringLiteral("[a[a2] b]"));
    QCOMPARE(_recorder->recorded(), (QStringList {"aboutToBeRemoved(a,0,0)", "removed(a,0,0)"}));
    // Rows are found again after removals shifted them.
    delete find("a");
    QCOMPARE(b.row(), 0);
    QCOMPARE(_model->toTreeNode(_model->index(0, 0)), find("b"));
    QCOMPARE(_model->parent(_model->treeNodeToIndex(find("a2"))), QModelIndex());
}

void TstTreeNodeModel::nodeIndexRoundTrip()
{
    setUpTree("a[a1[a11] a2] b", "e[e1]");
    for (const char *id : {"a", "a1", "a11", "a2", "b", "e", "e1"}) {
        const QModelIndex index = _model->treeNodeToIndex(find(id));
        QCOMPARE(index.column(), 0);
        QCOMPARE(_model->toTreeNode(index), find(id));
        QCOMPARE(_model->data(index, Qt::UserRole + 2).toString(), QString(id));
    }
    QCOMPARE(_model->treeNodeToIndex(find("a")).row(), 1);
    QCOMPARE(_model->treeNodeToIndex(find("a2")).row(), 1);
    QCOMPARE(_model->toTreeNode(QModelIndex()), _root);
    QVERIFY(!_model->treeNodeToIndex(_root).isValid());
    QVERIFY(!_model->treeNodeToIndex(nullptr).isValid());
}

void TstTreeNodeModel::foreignNodesAndIndexes()
{
    setUpTree("a b");
    TestNode *other = buildTree("[z[z1]]", _owner.get());
    QVERIFY(!_model->treeNodeToIndex(other->childNodes().first()).isValid());

    QStringListModel strings({"one", "two"});
    QCOMPARE(_model->toTreeNode(strings.index(0, 0)), nullptr);
    QVERIFY(!_model->parent(strings.index(1, 0)).isValid());
    QItemSelection foreign(strings.index(0, 0), strings.index(1, 0));
    QVERIFY(_model->toTreeNode(foreign).isEmpty());
}

void TstTreeNodeModel::selectionsGiveEachNodeOnce()
{
    setUpTree("a[a1] b c", "e");
    QItemSelection selection;
    selection.select(_model->index(1, 0), _model->index(2, 0));
    selection.select(_model->index(0, 0), _model->index(3, 0));
    selection.select(_model->index(0, 0, _model->index(1, 0)),
                     _model->index(0, 0, _model->index(1, 0)));

    QCOMPARE(_model->toTreeNode(selection.first()), (QList<TreeNode *> {find("a"), find("b")}));
    QCOMPARE(_model->toTreeNode(selection),
             (QList<TreeNode *> {find("a"), find("b"), find("e"), find("c"), find("a1")}));
}

void TstTreeNodeModel::resetPairSwallowsReload()
{
    // Given a loaded tree, when its owner reloads it between the reset pair,
    // then views see one reset and no row signals.
    _root = new TestNode(0, QString(), QStringLiteral("root"), _owner.get());
    _model->setRootNode(_root);
    auto load = [this](const QStringList &items) {
        QList<TreeNode *> nodes;
        for (const QString &item : items) {
            const QStringList parts = item.split(QLatin1Char(':'));
            nodes.append(new TestNode(parts.at(0).toInt(), parts.at(1), parts.at(2), _owner.get()));
        }
        _root->loadTreeFromList(nodes);
    };
    load({"1:root:a", "2:a:a1"});
    QCOMPARE(modelToString(_model), QStringLiteral("[a[a1]]"));
    _recorder->clear();

    _model->nodesAboutToBeReset();
    load({"2:c:c1", "1:root:c", "1:root:b", "2:b:b1"});
    _model->nodesReset();

    QCOMPARE(_recorder->recorded(), (QStringList {"aboutToBeReset", "reset"}));
    QCOMPARE(modelToString(_model), QStringLiteral("[b[b1] c[c1]]"));
    QVERIFY(!_model->signalsBlocked());

    // Without the pair the same reload is announced row by row.
    load({"1:root:d"});
    QCOMPARE(_recorder->recorded().mid(2),
             (QStringList {"aboutToBeRemoved(root,0,1)", "removed(root,0,1)",
                           "aboutToBeInserted(root,0,0)", "inserted(root,0,0)"}));
}

void TstTreeNodeModel::rootAndExtraChanges()
{
    setUpTree("a b");
    _model->setRootNode(_root);
    QCOMPARE(_recorder->take(), QStringList());

    const QList<TreeNode *> extras = buildNodes("e f", _owner.get());
    _model->setExtraRootChildNodes(extras);
    QCOMPARE(_recorder->take(), (QStringList {"aboutToBeReset", "reset"}));
    _model->setExtraRootChildNodes(_model->extraRootChildNodes());
    QCOMPARE(_recorder->take(), QStringList());
    QCOMPARE(modelToString(_model), QStringLiteral("[e f a b]"));

    // Extra nodes are listened to like the root: their subtrees are live rows.
    extras.first()->append(new TestNode("e1", _owner.get()));
    QCOMPARE(_recorder->take(), (QStringList {"aboutToBeInserted(e,0,0)", "inserted(e,0,0)"}));

    QPointer<TreeNode> e = extras.first();
    _model->deleteExtraRootChildNodes();
    QCOMPARE(_recorder->take(), (QStringList {"aboutToBeReset", "reset"}));
    QVERIFY(e.isNull());
    QCOMPARE(modelToString(_model), QStringLiteral("[a b]"));
    _model->deleteExtraRootChildNodes();
    QCOMPARE(_recorder->take(), QStringList());

    // The old root is no longer heard after the model moved to another one.
    TestNode *other = buildTree("[z]", _owner.get());
    _model->setRootNode(other);
    QCOMPARE(_recorder->take(), (QStringList {"aboutToBeReset", "reset"}));
    _root->append(new TestNode("x", _owner.get()));
    QCOMPARE(_recorder->take(), QStringList());
    QCOMPARE(modelToString(_model), QStringLiteral("[z]"));
}

void TstTreeNodeModel::emptyModels()
{
    // A root without columns: data changes have no cell to announce.
    setUpTree("a[a1]");
    _model->nodesAboutToBeReset();
    _root->setColumnCount(0);
    _model->nodesReset();
    _recorder->clear();
    find("a")->emitNodeDataChanged();
    _root->emitNodeChildsDataChanged();
    find("a")->emitNodeChildsDataChanged();
    QCOMPARE(_recorder->take(), QStringList());

    _model->setRootNode(nullptr);
    QCOMPARE(_model->rowCount(), 0);
    QCOMPARE(_model->columnCount(), 0);
    QVERIFY(!_model->hasChildren());
    QCOMPARE(_model->toTreeNode(QModelIndex()), nullptr);
    _model->nodesAboutToBeReset();
    _model->nodesReset();
    // setRootNode() resets; the reset pair does nothing without a root.
    QCOMPARE(_recorder->recorded(), (QStringList {"aboutToBeReset", "reset"}));
}

void TstTreeNodeModel::noExpanderFlagHidesChildren()
{
    // A node with the 0x4 flag claims no children while it has rows, which the model tester
    // rejects; this model is therefore checked without it.
    QObject owner;
    TestNode *root = buildTree("[a#4[a1] b[b1] c]", &owner);
    TreeNodeModel model(root);
    const QModelIndex a = model.index(0, 0);
    QCOMPARE(model.rowCount(a), 1);
    QVERIFY(!model.hasChildren(a));
    QVERIFY(model.hasChildren(model.index(1, 0)));
    QVERIFY(!model.hasChildren(model.index(2, 0)));
    QVERIFY(model.hasChildren());
}

void TstTreeNodeModel::childrenOfAnyColumn()
{
    // Every column of a row has the row's children, while their parent() is column 0. The
    // model tester insists that a child's parent is the very index it was reached from, so a
    // nested multi-column tree is checked here without it, through its column-0 structure.
    QObject owner;
    TestNode *root = buildTree("[a|x[a1|y a2|z] b|w]", &owner, 2);
    TreeNodeModel model(root);
    QCOMPARE(modelToString(&model), QStringLiteral("[a[a1 a2] b]"));
    const QModelIndex a = model.index(0, 0);
    const QModelIndex aValue = model.index(0, 1);
    QCOMPARE(aValue.data().toString(), QStringLiteral("x"));
    QCOMPARE(model.rowCount(aValue), 2);
    QCOMPARE(model.index(1, 1, a).data().toString(), QStringLiteral("z"));
    QCOMPARE(model.parent(model.index(1, 1, a)), a);
    QCOMPARE(model.toTreeNode(aValue), root->childNodes().first());
    QCOMPARE(model.columnCount(aValue), 2);
    QVERIFY(!model.index(0, 2).isValid());
    QCOMPARE(model.headerData(1, Qt::Horizontal).toString(), QStringLiteral("column 1"));
    QCOMPARE(model.flags(a), Qt::ItemIsSelectable | Qt::ItemIsEnabled);
    QCOMPARE(model.flags(QModelIndex()), Qt::NoItemFlags);

    ModelSignalRecorder recorder(&model);
    root->childNodes().first()->emitNodeDataChanged();
    QCOMPARE(recorder.recorded(), QStringList {"dataChanged(a,0,a,1)"});
    QVERIFY(!model.setData(a, QStringLiteral("new"), Qt::EditRole));
    QCOMPARE(recorder.recorded().size(), 1);
}

QTEST_GUILESS_MAIN(TstTreeNodeModel)

#include "tst_treenodemodel.moc"
