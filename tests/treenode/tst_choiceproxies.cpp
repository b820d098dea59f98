// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "signalrecorder.h"
#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/choicetreenodesortfilterproxymodel.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QStandardItemModel>
#include <QStringListModel>
#include <QtTest>

using namespace OvtTest;

namespace {

const int ChoiceRole = Qt::UserRole + 10;
const int BlockRole = Qt::UserRole + 11;

QSet<QString> names(const QString &text)
{
    const QStringList list = words(text);
    return QSet<QString>(list.begin(), list.end());
}

// The rows with their state: "a+" reads as ticked, "a!" has no flags.
QString stateToString(const ChoiceTreeNodeProxyModel *model, const QModelIndex &parent = {})
{
    QStringList parts;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        QString part = indexName(index);
        if (model->index(row, model->nameColumn(), parent).data(model->choiceRole()).toBool())
            part += '+';
        if (model->flags(index) == Qt::NoItemFlags)
            part += '!';
        parts.append(part + (model->rowCount(index) ? stateToString(model, index) : QString()));
    }
    return '[' + parts.join(' ') + ']';
}

} // namespace

// Blocked rows lose every flag; the model tester still walks below them.
class TstChoiceProxies : public QObject
{
    Q_OBJECT

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNodeModel *_model = nullptr;
    ChoiceTreeNodeProxyModel *_choice = nullptr;
    QList<QAbstractItemModel *> _proxies; // ticked, unticked, filtering ticked and unticked
    SignalRecorder *_log = nullptr; // of the choice model, with "stateChanged"

    void setUp(const QString &tree, int choiceRole = ChoiceRole, int columns = 1,
               int nameColumn = 0)
    {
        _owner = std::make_unique<QObject>();
        _root = new TestNode("root", _owner.get(), 0);
        _root->columns = columns;
        _root->append(buildNodes(tree, _owner.get()));
        _model = new TreeNodeModel(_root, _owner.get());
        _choice = new ChoiceTreeNodeProxyModel(nameColumn, choiceRole, BlockRole, _model);
        _choice->setSourceModel(_model);
        _proxies = {new ChoiceTreeNodeSortFilterProxyModel(true, _choice),
                    new ChoiceTreeNodeSortFilterProxyModel(false, _choice),
                    new ChoiceFilterTreeNodeSortFilterProxyModel(true, _choice),
                    new ChoiceFilterTreeNodeSortFilterProxyModel(false, _choice)};
        for (QAbstractItemModel *model : QList<QAbstractItemModel *> {_model, _choice} + _proxies) {
            if (auto *proxy = qobject_cast<QSortFilterProxyModel *>(model))
                proxy->setSourceModel(_choice);
            watch(model);
        }
        _log = new SignalRecorder(_choice, _choice);
        connect(_choice, &ChoiceTreeNodeProxyModel::stateChanged, _log,
                [this] { _log->log << "stateChanged"; });
    }
    QModelIndex choiceIndex(const QString &id) const
    {
        const QModelIndex index = _choice->treeNodeToIndex(findNode(_root, id));
        return index.sibling(index.row(), _choice->nameColumn());
    }

private Q_SLOTS:
    void cleanup()
    {
        qDeleteAll(_proxies); // each before the model it watches
        delete _choice;
        delete _model; // before the tree
        _owner.reset();
    }

    void readState_data()
    {
        // tree; checked; blocked; rows with their state
        table();
        row("blocked: the parent's state; at the top: ticked",
            "a[a1 a2] b; a; a1 b; [a+[a1+! a2] b+!]");
        row("blocked: its own tick ignored", "a[a1 a2] b; a1; a1; [a[a1! a2] b]");
        row("below a blocked row: its own", "a[a1 a2] b; a2; a; [a+![a1 a2+] b]");
        row("nearest ancestor not blocked", "a[b[c[d]]]; a; c d; [a+[b[c![d!]]]]");
    }
    void readState()
    {
        const auto [tree, checked, blocked, expected] = fields<4>();
        setUp(tree);
        _choice->setCheckedBlockedNames(names(checked), names(blocked));
        QCOMPARE(stateToString(_choice), expected);
        // The block role reads the same state; the display is the source's.
        for (TreeNode *node : _root->allChildNodes()) {
            const QModelIndex index = choiceIndex(node->id());
            QCOMPARE(index.data(BlockRole), index.data(ChoiceRole));
            QCOMPARE(index.data().toString(), node->id());
        }
    }

    void otherRolesAndColumnsPassThrough()
    {
        // Flat rows: only a one-column tree may nest under the model tester. Ticking through the
        // views, with its refusals, is checked by the choice widgets and the seeded mutation run.
        setUp("a|x b|y", ChoiceRole, 2, 1);
        _choice->setCheckedBlockedNames({"y"}, {"x"});
        QCOMPARE(stateToString(_choice), QStringLiteral("[a+! b+]"));
        QVERIFY(!_choice->index(1, 0).data(ChoiceRole).isValid()); // the source's: nothing
        QCOMPARE(_choice->index(1, 0).data(Qt::UserRole + 2), QVariant("b"));
        QCOMPARE(_choice->flags(_choice->index(0, 0)), Qt::NoItemFlags); // in every column
        QCOMPARE(_choice->flags(_choice->index(1, 0)), _model->flags(_model->index(1, 0)));
        QVERIFY(!_choice->setData(_choice->index(1, 0), true, ChoiceRole));
        QVERIFY(!_choice->setData(_choice->index(1, 1), true, Qt::EditRole));
        _log->log.clear();
        QVERIFY(_choice->setData(_choice->index(1, 1), false, ChoiceRole));
        QCOMPARE(_choice->removeNames(), QSet<QString> {"y"});
        QVERIFY(_choice->setData(_choice->index(1, 1), 1, ChoiceRole)); // partly checked ticks
        QVERIFY(_choice->removeNames().isEmpty() && _choice->addNames().isEmpty());
        // Every blocked row is announced too: it may follow the ticked one.
        const QString tick = "dataChanged(b,1,b,1) dataChanged(a,1,a,1) stateChanged ";
        QCOMPARE(_log->log, words(tick + tick));

        QStringListModel strings({"a"});
        QVERIFY(!_choice->data(strings.index(0, 0), ChoiceRole).isValid());
        QVERIFY(!_choice->setData(strings.index(0, 0), true, ChoiceRole));
        // Only node-tree models are ticked by name; any other model keeps its own state.
        QStandardItemModel items(1, 1);
        items.setItem(0, new QStandardItem("a"));
        ChoiceTreeNodeProxyModel choice(0, ChoiceRole, BlockRole);
        choice.setSourceModel(&items);
        QVERIFY(choice.setData(choice.index(0, 0), true, ChoiceRole));
        QCOMPARE(items.item(0)->data(ChoiceRole), QVariant(true));
        QVERIFY(choice.checkedNames().isEmpty() && choice.addNames().isEmpty());
    }

    void setters_data()
    {
        // call after checked {a a1}, blocked {a2}, a1 unticked and b ticked; checked; blocked;
        // added; removed; 1 if reset and stateChanged
        table();
        row("new checked: differences forgotten", "checked a; a; a2;;; 1");
        row("same checked", "checked a b; a b; a2; b; a1; 0");
        row("new blocked: differences kept", "blocked a; a b; a; b; a1; 1");
        row("both, in one reset", "both a1|a b; a1; a b; b; a1; 1");
        row("both the same", "both a b|a2; a b; a2; b; a1; 0");
        row("clear differences: silent", "clear; a b; a2;;; 0");
    }
    void setters()
    {
        const auto [call, expectedChecked, expectedBlocked, added, removed, resets] = fields<6>();
        setUp("a[a1 a2] b");
        _choice->setCheckedBlockedNames({"a", "a1"}, {"a2"});
        QVERIFY(_choice->setData(choiceIndex("a1"), false, ChoiceRole));
        QVERIFY(_choice->setData(choiceIndex("b"), true, ChoiceRole));
        _log->log.clear();

        const QString verb = call.section(' ', 0, 0), argument = call.section(' ', 1);
        if (verb == QLatin1String("checked"))
            _choice->setCheckedNames(names(argument));
        else if (verb == QLatin1String("blocked"))
            _choice->setBlockedNames(names(argument));
        else if (verb == QLatin1String("both"))
            _choice->setCheckedBlockedNames(names(argument.section('|', 0, 0)),
                                            names(argument.section('|', 1)));
        else
            _choice->clearAddRemoveNames();
        QCOMPARE(_log->log,
                 resets == "1" ? words("aboutToBeReset reset stateChanged") : QStringList());
        QCOMPARE((QList<QSet<QString>> {_choice->checkedNames(), _choice->blockedNames(),
                                        _choice->addNames(), _choice->removeNames()}),
                 (QList<QSet<QString>> {names(expectedChecked), names(expectedBlocked),
                                        names(added), names(removed)}));
    }

    void filterProxies_data()
    {
        // tree; role; checked; blocked; rows of the four proxies as set up
        table();
        const QString tree = "a[a1 a2] b c; ";
        row("ticked and unticked", tree + "choice; a a1 c;; [a[a1] c] [b] [a[a1] c] [b]");
        row("unticked parent hides ticked children",
            tree + "choice; a1;; [] [a[a2] b c] [] [a[a2] b c]");
        row("flag 1: only the filtering ones", "a#1 b#2 c; choice; a b;; [a b] [c] [b] [c]");
        // The state is a bool even under Qt::CheckStateRole, never Qt::Checked: all unticked.
        row("check role", tree + "check; a a1 a2;; [] [a[a1 a2] b c] [] [a[a1 a2] b c]");
    }
    void filterProxies()
    {
        const auto [tree, role, checked, blocked, expected] = fields<5>();
        setUp(tree, role == "check" ? int(Qt::CheckStateRole) : ChoiceRole);
        _choice->setCheckedBlockedNames(names(checked), names(blocked));
        QStringList rows;
        for (QAbstractItemModel *proxy : qAsConst(_proxies))
            rows << modelToString(proxy);
        QCOMPARE(rows.join(' '), expected);

        // Views turn rows back into nodes, each once.
        QCOMPARE(_choice->toTreeNode(_model->index(0, 0)), nullptr); // not the choice model's
        QItemSelection selection(_choice->index(1, 0), _choice->index(1, 0));
        selection.select(_choice->index(0, 0), _choice->index(1, 0)); // b twice: once
        QCOMPARE(_choice->toTreeNode(selection).size(), 2);
    }
};

QTEST_GUILESS_MAIN(TstChoiceProxies)

#include "tst_choiceproxies.moc"
