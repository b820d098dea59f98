// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signalrecorder.h"
#include "treenode/confroottreenode.h"
#include "treenode/conftreenode.h"
#include "treestring.h"

#include <QPointer>
#include <QtTest>

using namespace OvtTest;

class TstTreeNode : public QObject
{
    Q_OBJECT

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNode *find(const QString &id) const { return findNode(_root, id); }

private Q_SLOTS:
    void init() { _owner = std::make_unique<QObject>(), TestNode::afterLoadLog.clear(); }
    void cleanup() { _owner.reset(); }

    void insertRemove_data()
    {
        // tree; "insert <parent> <pos> <nodes>" or "remove <parent> <pos> <count>"; tree; signals
        table();
        const QString five = "[a b c d e]; ";
        row("insert -5: front",
            "[a b]; insert root -5 x y; [x y a b]; aboutToBeInserted(root,0,1) inserted");
        row("insert 1000: end",
            "[a b]; insert root 1000 x; [a b x]; aboutToBeInserted(root,2,2) inserted");
        row("insert nothing", "[a b]; insert root 1; [a b];");
        row("insert deep",
            "[a[a1[a11]] b]; insert a1 1 x[x1]; [a[a1[a11 x[x1]]] b]; aboutToBeInserted(a1,1,1) "
            "inserted");
        // "@name" is a node already built (null for "@null"): a fresh one listed again, a child
        // or an ancestor. Such nodes are skipped; when none is left nothing is emitted.
        row("insert skips null, repeats and children",
            "[a b]; insert root 1 x @null @x @a y; [a x y b]; aboutToBeInserted(root,1,2) "
            "inserted");
        row("insert skips itself and ancestors",
            "[a[a1[a11]]]; insert a11 0 @a11 @a1 @a @root; [a[a1[a11]]];");
        row("remove clamped", five + "remove root 2 10; [a b]; aboutToBeRemoved(root,2,4) removed");
        row("remove at -1", five + "remove root -1 3; " + five);
        row("remove deep",
            "[a[a1[a11 a12]]]; remove a1 1 1; [a[a1[a11]]]; aboutToBeRemoved(a1,1,1) removed");
    }
    void insertRemove()
    {
        const auto [tree, change, expectedTree, expectedSignals] = fields<4>();
        _root = buildTree(tree, _owner.get());
        const QStringList args = words(change);
        TreeNode *parent = find(args.at(1));
        const bool insert = args.first() == QLatin1String("insert");
        QList<TreeNode *> fresh, listed;
        for (const QString &word : args.mid(insert ? 3 : 4)) {
            if (!word.startsWith('@'))
                fresh += buildNodes(word, _owner.get());
            const QString id = word.mid(1);
            auto known = std::find_if(fresh.begin(), fresh.end(),
                                      [&](TreeNode *node) { return node->id() == id; });
            listed += !word.startsWith('@') ? fresh.last()
                : known != fresh.end()      ? *known
                : id == "null"              ? nullptr
                                            : find(id);
        }
        SignalRecorder recorder(_root);
        if (insert)
            parent->insert(args.at(2).toInt(), listed);
        else
            parent->removeAt(args.at(2).toInt(), args.at(3).toInt());
        QCOMPARE(treeToString(_root), expectedTree);
        QCOMPARE(recorder.take(), words(expectedSignals));
    }

    void lookups()
    {
        _root = buildTree("[a[a1[a11] a2] b[b1] c]", _owner.get());
        QStringList ids;
        for (TreeNode *node : _root->allChildNodes())
            ids.append(node->id());
        QCOMPARE(ids, words("a b c a1 a2 b1 a11")); // breadth first
        QVERIFY(_root->contains(find("b")) && !_root->contains(find("a1")));
        QCOMPARE(_root->indexOf(find("b"), 2), -1);
        QCOMPARE(_root->indexOf(find("c"), -1), 2); // from the end
        QCOMPARE(_root->indexOf(find("a"), -10), 0); // clamped to 0
        QVERIFY(!_root->removeOne(find("a1")) && _root->removeOne(find("b")));
        QCOMPARE(treeToString(_root), QStringLiteral("[a[a1[a11] a2] c]"));
    }

    void takingOut_data()
    {
        // what is done to b or the root; tree after; the nodes alive ("+": with a parent), with
        // their children. b leaves the tree before it is cleared: the root hears the removal only.
        table();
        const QString root = "; aboutToBeRemoved(root,1,1) removed";
        row("reset", "reset; [a[a1[a11]] c]; a+[a1[a11]] b c+ a1+[a11] b1 b2 a11+" + root);
        row("delete", "delete; [a[a1[a11]] c]; a+[a1[a11]] c+ a1+[a11] b1 b2 a11+" + root);
        row("clearDelete: a child deleted by its sibling",
            "clearDelete; []; a1[a11] b1 b2 a11+; aboutToBeRemoved(root,0,2) removed");
        row("clearDeleteAll", "clearDeleteAll; [];; aboutToBeRemoved(root,0,2) removed");
    }
    void takingOut()
    {
        const auto [change, expectedTree, expectedAlive, expectedSignals] = fields<4>();
        _root = buildTree("[a[a1[a11]] b[b1 b2] c]", _owner.get());
        find("c")->setParent(find("a"));
        QList<QPointer<TreeNode>> guards;
        for (TreeNode *node : _root->allChildNodes())
            guards.append(node);
        SignalRecorder recorder(_root);
        change == "reset"             ? find("b")->reset()
            : change == "delete"      ? delete find("b")
            : change == "clearDelete" ? _root->clearDelete()
                                      : _root->clearDeleteAll();
        QStringList alive;
        for (const QPointer<TreeNode> &node : guards)
            if (node)
                alive.append(node->id() + (node->parentNode() ? "+" : "")
                             + (node->childNodesCount() ? treeToString(node) : ""));
        QCOMPARE(treeToString(_root), expectedTree);
        QCOMPARE(alive, words(expectedAlive));
        QCOMPARE(recorder.log, words(expectedSignals));
    }

    void loadTreeFromList_data()
    {
        // input "depth:expectedParentId:id"; tree; afterLoad() order; nodes left out
        table();
        row("by depth, then id", "1::b 1::ab 1::a 1::B; [B a ab b]; B a ab b;");
        row("children under parents",
            "2:b:b1 2:a:a2 1::b 2:a:a1 1::a 3:a1:a11; [a[a1[a11] a2] b[b1]]; a b a1 a2 b1 a11;");
        row("equal ids: the first gets all", "1::a 1::a 2:a:x 2:a:y; [a[x y] a]; a a x y;");
        row("unknown parent", "1::a 2:zz:x 2:a:a1; [a[a1]]; a a1; x");
        row("children of an unmatched node", "1:nope:a 2:a:a1 3:a1:a11 1::b; [b]; b; a a1 a11");
        // "null", "again" (the previous node once more), "root" and "top" (above the root)
        // are skipped; "max" gives the root the depth INT_MAX, whose next level does not exist.
        row("null, repeats, root and above",
            "1::a again null root 2:a:a1 again top; [a[a1]]; a a1;");
        row("extreme depths", "max -2147483648::a 2147483647::b; []; ; a b");
    }
    void loadTreeFromList()
    {
        const auto [input, expectedTree, expectedAfterLoad, leftOut] = fields<4>();
        const bool max = input.startsWith("max");
        _root = new TestNode(QString(), _owner.get(), max ? INT_MAX : 0);
        auto *top = new TestNode("top", _owner.get());
        top->append(_root);
        TreeNode *old = buildNodes("old[o1]", _owner.get()).first();
        _root->append(old);
        QList<TreeNode *> nodes, listed;
        for (const QString &word : words(input).mid(max ? 1 : 0)) {
            if (word.contains(':'))
                nodes += listNodes(word, _owner.get());
            listed += word == "null" ? nullptr
                : word == "root"     ? _root
                : word == "top"      ? top
                : word == "again"    ? listed.last()
                                     : nodes.last();
        }
        _root->loadTreeFromList(listed);

        QCOMPARE(treeToString(_root), expectedTree);
        QCOMPARE(TestNode::afterLoadLog, words(expectedAfterLoad)); // root gets none
        QCOMPARE(treeToString(old), QStringLiteral("[o1]")); // detached with its subtree
        QVERIFY(!old->parentNode());
        for (TreeNode *node : nodes) {
            const bool out = words(leftOut).contains(node->id());
            QCOMPARE(!node->parentNode(), out);
            QCOMPARE(static_cast<TestNode *>(node)->afterLoads, out ? 0 : 1);
            QVERIFY(!out || !node->childNodesCount());
        }
    }

    void confNodes()
    {
        // Children find a configuration node by its key and value.
        auto *root = new ConfRootTreeNode;
        QPointer<TreeNode> host = new ConfTreeNode("host", "db");
        QPointer<TreeNode> below = new TestNode("below", nullptr, 2, "Conf_host_db");
        root->loadTreeFromList({new ConfTreeNode("port", "5432"), host, below});
        QCOMPARE(treeToString(root), QStringLiteral("[Conf_host_db[below] Conf_port_5432]"));
        QCOMPARE(host->data(1, Qt::DisplayRole).toString()
                     + host->data(0, Qt::ToolTipRole).toString(),
                 QStringLiteral("dbhost"));
        delete root; // deletes its whole subtree
        QVERIFY(host.isNull() && below.isNull());
    }
};

QTEST_GUILESS_MAIN(TstTreeNode)

#include "tst_treenode.moc"
