// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signalrecorder.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QPointer>
#include <QStringListModel>
#include <QtTest>

using namespace OvtTest;

// The model and both node proxies over it (hiding flag 1), all under the model tester.
class TstTreeNodeModel : public QObject
{
    Q_OBJECT

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNodeModel *_model = nullptr;
    TreeNodeSortFilterProxyModel *_proxy = nullptr;
    FilterTreeNodeSortFilterProxyModel *_filter = nullptr;
    SignalRecorder *_log = nullptr;

    TreeNode *find(const QString &id) const
    {
        for (TreeNode *extra : _model->extraRootChildNodes()) {
            if (TreeNode *node = findNode(extra, id))
                return node;
        }
        return findNode(_root, id);
    }
    void setUp(const QString &tree, const QString &extras = QString(), int columns = 1)
    {
        cleanup();
        _owner = std::make_unique<QObject>();
        _root = new TestNode("root", _owner.get(), 0);
        _root->columns = columns; // the model's column count
        _root->append(buildNodes(tree, _owner.get()));
        _model = new TreeNodeModel(_root, _owner.get());
        _model->setExtraRootChildNodes(buildNodes(extras, _owner.get()));
        _proxy = new TreeNodeSortFilterProxyModel(1, _model);
        _filter = new FilterTreeNodeSortFilterProxyModel(1, _model);
        for (QAbstractItemModel *model : QList<QAbstractItemModel *> {_model, _proxy, _filter}) {
            if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(model))
                proxy->setSourceModel(_model);
            watch(model);
        }
        _log = new SignalRecorder(_model, _model);
    }

private Q_SLOTS:
    void cleanup()
    {
        delete std::exchange(_model, nullptr); // first: the tree's teardown must not reach it
        _owner.reset();
    }

    void changes_data()
    {
        // tree; extras; "insert|remove <parent> <pos> <nodes|count>", "data|childs <node>",
        // "delete <node>", "reload|pair <depth:parent:id ...>" (pair: within the reset pair);
        // model rows; begin, data and reset signals; proxy rows ("=": the model's)
        table();
        const QString ab = "a[a1] b;; ";
        row("extras first", "a b; x y#1[y1];; [x y[y1] a b];; [x a b]");
        row("insert front",
            "a b;; insert root 0 x y#1; [x y a b]; aboutToBeInserted(root,0,1); [x a b]");
        row("insert + extras",
            "a; e f; insert root 0 x; [e f x a]; aboutToBeInserted(root,2,2); =");
        row("insert in extra",
            "a; e[e1]; insert e1 0 x; [e[e1[x]] a]; aboutToBeInserted(e1,0,0); =");
        row("remove hidden", "a[a1 a2#1];; remove a 1 1; [a[a1]]; aboutToBeRemoved(a,1,1); =");
        row("remove in extra", "a; e[e1 e2]; remove e 0 1; [e[e2] a]; aboutToBeRemoved(e,0,0); =");
        row("reload",
            ab
                + "reload 1:root:c 2:c:c1; [c[c1]]; aboutToBeRemoved(root,0,1) "
                  "aboutToBeInserted(root,0,0) aboutToBeInserted(c,0,0); =");
        // One reset and no row signals: the reload happens while the model is blocked.
        row("reload in the pair",
            ab + "pair 2:b:b1 1:root:b 1:root:a; [a b[b1]]; aboutToBeReset reset; =");
        row("node data", "a[a1 a2];; data a1; [a[a1 a2]]; dataChanged(a1,0,a1,0); =");
        row("children's data", "a[a1 a2];; childs a; [a[a1 a2]]; dataChanged(a1,0,a2,0); =");
        row("root's children's data", "a b; e; childs root; [e a b]; dataChanged(e,0,b,0); =");
        row("no children's data", "a b;; childs b; [a b];; =");
        // Deleted while shown: the model starts over without the node.
        row("delete the root",
            "a[a1] b; e; delete root; []; aboutToBeRemoved(root,1,2) aboutToBeReset reset; =");
        row("delete an extra",
            "a; e[e1] f; delete e; [f a]; aboutToBeRemoved(e,0,0) aboutToBeReset reset; =");
    }
    void changes()
    {
        const auto [tree, extras, change, expected, expectedSignals, proxies] = fields<6>();
        setUp(tree, extras);
        SignalRecorder proxyLog(_filter);
        const QStringList args = words(change);
        const QString verb = args.value(0);
        TreeNode *node = find(args.value(1));
        if (verb == QLatin1String("insert"))
            node->insert(args.at(2).toInt(), buildNodes(args.mid(3).join(' '), _owner.get()));
        else if (verb == QLatin1String("remove"))
            node->removeAt(args.at(2).toInt(), args.at(3).toInt());
        else if (verb == QLatin1String("data") || verb == QLatin1String("childs"))
            verb == "data" ? node->emitNodeDataChanged() : node->emitNodeChildsDataChanged();
        else if (verb == QLatin1String("delete"))
            delete node;
        const bool pair = verb == QLatin1String("pair");
        if (pair)
            _model->nodesAboutToBeReset();
        if (pair || verb == QLatin1String("reload"))
            _root->loadTreeFromList(listNodes(args.mid(1).join(' '), _owner.get()));
        if (pair)
            _model->nodesReset();
        QCOMPARE(proxyLog.log.filter("eset"), _log->log.filter("eset")); // reset along
        QCOMPARE(modelToString(_model), expected);
        QCOMPARE(_log->log.filter(QRegularExpression("^(about|data|reset)")),
                 words(expectedSignals));
        QCOMPARE(modelToString(_proxy), proxies == "=" ? expected : proxies);
        QCOMPARE(modelToString(_filter), proxies == "=" ? expected : proxies);
    }

    void nodesAndIndexes()
    {
        setUp("a[a1[a11] a2#1] b c", "e[e1]");
        QStringListModel strings({"one", "two", "three"});
        for (TreeNodeModelExtension *m :
             QList<TreeNodeModelExtension *> {_model, _proxy, _filter}) {
            QCOMPARE(m->toTreeNode(QModelIndex()), _root);
            QVERIFY(!m->treeNodeToIndex(_root).isValid());
            QVERIFY(!m->treeNodeToIndex(new TestNode("stranger", _owner.get())).isValid());
            QCOMPARE(m->toTreeNode(strings.index(0, 0)), nullptr);
            QVERIFY(
                m->toTreeNode(QItemSelection(strings.index(0, 0), strings.index(1, 0))).isEmpty());
        }

        // Selections give each node once, in index order.
        for (QAbstractItemModel *m : QList<QAbstractItemModel *> {_model, _filter}) {
            QItemSelection selection(m->index(1, 0), m->index(2, 0));
            selection.select(m->index(0, 0), m->index(3, 0));
            auto *e = dynamic_cast<TreeNodeModelExtension *>(m);
            QCOMPARE(e->toTreeNode(selection.first()), (QList<TreeNode *> {find("a"), find("b")}));
            QCOMPARE(e->toTreeNode(selection),
                     (QList<TreeNode *> {find("a"), find("b"), find("e"), find("c")}));
        }

        // Over a model without nodes, rows without flags pass the flag filters and map to none.
        FilterTreeNodeSortFilterProxyModel proxy(3);
        watch(&proxy);
        proxy.setSourceModel(&strings);
        proxy.setFilterRegExp("t");
        QCOMPARE(proxy.rowCount(), 2);
        QVERIFY(!proxy.toTreeNode(proxy.index(0, 0)) && !proxy.treeNodeToIndex(_root).isValid());
    }

    void rootExtrasAndEmptyModels()
    {
        setUp("a b");
        _model->setRootNode(_root);
        const QList<TreeNode *> extras = buildNodes("e f", _owner.get());
        _model->setExtraRootChildNodes(extras);
        _model->setExtraRootChildNodes(_model->extraRootChildNodes());
        QCOMPARE(_log->take(), words("aboutToBeReset reset"));
        extras.first()->append(new TestNode("e1", _owner.get())); // extras are listened to
        QCOMPARE(_log->take(), words("aboutToBeInserted(e,0,0) inserted(e,0,0)"));

        QPointer<TreeNode> e = extras.first();
        _model->deleteExtraRootChildNodes();
        _model->deleteExtraRootChildNodes();
        QCOMPARE(_log->take(), words("aboutToBeReset reset"));
        QVERIFY(e.isNull());

        // The old root is no longer heard.
        _model->setRootNode(buildTree("[z]", _owner.get()));
        _root->append(new TestNode("x", _owner.get()));
        QCOMPARE(_log->take(), words("aboutToBeReset reset"));
        QCOMPARE(modelToString(_model), QStringLiteral("[z]"));

        // Without columns, data changes have no cell to announce.
        setUp("a[a1]", QString(), 0);
        find("a")->emitNodeDataChanged();
        find("a")->emitNodeChildsDataChanged();
        _root->emitNodeChildsDataChanged();
        QCOMPARE(_log->take(), QStringList());

        // Without a root, the model is empty and the reset pair does nothing.
        _model->setRootNode(nullptr);
        _model->nodesAboutToBeReset();
        _model->nodesReset();
        QCOMPARE(_log->take(), words("aboutToBeReset reset"));
        QCOMPARE(_model->rowCount() + _model->columnCount(), 0);
        QVERIFY(!_model->hasChildren() && !_model->toTreeNode(QModelIndex()));
    }

    void columnsAndExpanders()
    {
        // Every column of a row has the row's children, with column-0 parents; a node with the
        // 0x4 flag claims no children while it has rows. The model tester rejects both.
        TestNode *root = buildTree("[a|x[a1|y a2|z] b|w c#4[c1]]", this, 2);
        TreeNodeModel model(root);
        QCOMPARE(modelToString(&model), QStringLiteral("[a[a1 a2] b c[c1]]"));
        const QModelIndex a = model.index(0, 0);
        const QModelIndex ax = model.index(0, 1);
        QVERIFY(model.hasChildren(a) && !model.hasChildren(model.index(1, 0))
                && !model.hasChildren(model.index(2, 0)));
        QCOMPARE(ax.data().toString(), QStringLiteral("x"));
        QCOMPARE(model.index(1, 1, ax).data().toString(), QStringLiteral("z"));
        QCOMPARE(model.parent(model.index(1, 1, a)), a);
        QCOMPARE(model.toTreeNode(ax), findNode(root, "a"));

        SignalRecorder recorder(&model);
        findNode(root, "a")->emitNodeDataChanged();
        QVERIFY(!model.setData(a, "new", Qt::EditRole));
        QCOMPARE(recorder.log, QStringList {"dataChanged(a,0,a,1)"});
    }

    void filters_data()
    {
        // accepted columns; expression; cells of the rows (trees: the seeded mutation run)
        table();
        row("all columns searched", "; two; b|two|lima");
        row("text in a hidden column", "0 2; two; ");
        row("text in an accepted column", "0 2; kilo; a|kilo");
    }
    void filters()
    {
        const auto [accepted, expression, expected] = fields<3>();
        setUp("a|one|kilo b|two|lima c|three|mike", QString(), 3);
        FilterTreeNodeSortFilterProxyModel proxy(0);
        proxy.setSourceModel(_model);
        watch(&proxy);
        QSet<int> columns;
        for (const QString &column : words(accepted))
            columns.insert(column.toInt());
        SignalRecorder proxyLog(&proxy);
        proxy.setAcceptColumns(columns);
        QCOMPARE(proxyLog.log, words("aboutToBeReset reset")); // even for an equal set
        proxy.setFilterRegExp(expression);
        QStringList cells;
        for (int row = 0; row < proxy.rowCount(); ++row) {
            QStringList texts;
            for (int column = 0; column < proxy.columnCount(); ++column)
                texts << proxy.index(row, column).data().toString();
            cells << texts.join('|');
        }
        QCOMPARE(cells.join(' '), expected);
    }
};

QTEST_GUILESS_MAIN(TstTreeNodeModel)

#include "tst_treenodemodel.moc"
