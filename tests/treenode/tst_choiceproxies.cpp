#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/choicetreenodesortfilterproxymodel.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"
#include "treestring.h"

#include <QAbstractItemModelTester>
#include <QStandardItemModel>
#include <QStringListModel>
#include <QtTest>

#include <memory>

using namespace OvtTest;

namespace {

const int ChoiceRole = Qt::UserRole + 10;
const int BlockRole = Qt::UserRole + 11;

QSet<QString> names(const QString &words)
{
    const QStringList list = words.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    return QSet<QString>(list.begin(), list.end());
}

// The rows in tree notation with their state: "a+" reads as ticked, "a!" has no flags.
QString stateToString(const ChoiceTreeNodeProxyModel *model, const QModelIndex &parent = {})
{
    QStringList parts;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        QString part = indexName(index);
        if (model->index(row, model->nameColumn(), parent).data(model->choiceRole()).toBool())
            part += QLatin1Char('+');
        if (model->flags(index) == Qt::NoItemFlags)
            part += QLatin1Char('!');
        if (model->rowCount(index))
            part += stateToString(model, index);
        parts.append(part);
    }
    return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
}

} // namespace

class TstChoiceProxies : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void readState_data();
    void readState();
    void stateIsAlwaysABool();
    void otherRolesAndColumnsPassThrough();
    void writeState_data();
    void writeState();
    void writesOverAModelWithoutNodes();
    void setters_data();
    void setters();
    void filterProxies_data();
    void filterProxies();
    void treeChanges_data();
    void treeChanges();
    void nodesThroughChoiceProxies();

private:
    void setUp(const QString &tree, int choiceRole = ChoiceRole, int columns = 1,
               int nameColumn = 0);
    void attach(QAbstractItemModel *model);
    void dropProxies();
    TreeNode *find(const QString &id) const;
    QModelIndex choiceIndex(const QString &id) const;

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNodeModel *_model = nullptr;
    ChoiceTreeNodeProxyModel *_choice = nullptr;
    ChoiceTreeNodeSortFilterProxyModel *_checked = nullptr;
    ChoiceTreeNodeSortFilterProxyModel *_unchecked = nullptr;
    ChoiceFilterTreeNodeSortFilterProxyModel *_filterChecked = nullptr;
    ChoiceFilterTreeNodeSortFilterProxyModel *_filterUnchecked = nullptr;
    QStringList _log;
};

void TstChoiceProxies::init()
{
    _owner = std::make_unique<QObject>();
    _root = new TestNode(QStringLiteral("root"), _owner.get());
    _model = new TreeNodeModel(_root, _owner.get());
    attach(_model);
    setUp(QString());
}

void TstChoiceProxies::cleanup()
{
    dropProxies();
    delete _model;
    _owner.reset();
    _log.clear();
}

// Proxies first, top down: each must be gone before the model it watches.
void TstChoiceProxies::dropProxies()
{
    for (QAbstractItemModel *model : std::initializer_list<QAbstractItemModel *> {
             _filterUnchecked, _filterChecked, _unchecked, _checked, _choice})
        delete model;
    _filterUnchecked = _filterChecked = nullptr;
    _unchecked = _checked = nullptr;
    _choice = nullptr;
}

void TstChoiceProxies::attach(QAbstractItemModel *model)
{
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 model);
}

// Rebuilds the choice model and the four filter proxies over it, all under the model tester,
// and fills the tree. The log records the choice model's resets, data changes and state
// changes in one sequence.
void TstChoiceProxies::setUp(const QString &tree, int choiceRole, int columns, int nameColumn)
{
    dropProxies();
    _choice = new ChoiceTreeNodeProxyModel(nameColumn, choiceRole, BlockRole);
    _choice->setSourceModel(_model);
    attach(_choice);
    _checked = new ChoiceTreeNodeSortFilterProxyModel(true);
    _unchecked = new ChoiceTreeNodeSortFilterProxyModel(false);
    _filterChecked = new ChoiceFilterTreeNodeSortFilterProxyModel(true);
    _filterUnchecked = new ChoiceFilterTreeNodeSortFilterProxyModel(false);
    for (QSortFilterProxyModel *proxy : std::initializer_list<QSortFilterProxyModel *> {
             _checked, _unchecked, _filterChecked, _filterUnchecked}) {
        proxy->setSourceModel(_choice);
        attach(proxy);
    }
    connect(_choice, &QAbstractItemModel::modelAboutToBeReset, _choice,
            [this] { _log.append(QStringLiteral("aboutToBeReset")); });
    connect(_choice, &QAbstractItemModel::modelReset, _choice,
            [this] { _log.append(QStringLiteral("reset")); });
    connect(_choice, &QAbstractItemModel::dataChanged, _choice,
            [this](const QModelIndex &topLeft, const QModelIndex &bottomRight) {
                _log.append(QStringLiteral("dataChanged(%1,%2)")
                                .arg(indexName(topLeft), indexName(bottomRight)));
            });
    connect(_choice, &ChoiceTreeNodeProxyModel::stateChanged, _choice,
            [this] { _log.append(QStringLiteral("stateChanged")); });

    _model->nodesAboutToBeReset();
    _root->setColumnCount(columns);
    _model->nodesReset();
    _root->append(buildNodes(tree, _owner.get()));
    _log.clear();
}

TreeNode *TstChoiceProxies::find(const QString &id) const
{
    for (TreeNode *node : _root->allChildNodes()) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

QModelIndex TstChoiceProxies::choiceIndex(const QString &id) const
{
    const QModelIndex index = _choice->treeNodeToIndex(find(id));
    return index.sibling(index.row(), _choice->nameColumn());
}

void TstChoiceProxies::readState_data()
{
    columns({"tree", "checked", "blocked", "expected"});
    const char *tree = "a[a1 a2] b;";
    row("nothing ticked", tree + QStringLiteral(";; [a[a1 a2] b]"));
    row("ticked names at any depth", tree + QStringLiteral("a2 b;; [a[a1 a2+] b+]"));
    row("names of no row are harmless", tree + QStringLiteral("zz; yy; [a[a1 a2] b]"));
    row("a blocked row follows its ticked parent", tree + QStringLiteral("a; a1; [a+[a1+! a2] b]"));
    row("a blocked row ignores its own tick", tree + QStringLiteral("a1; a1; [a[a1! a2] b]"));
    row("a blocked row at the top reads as ticked", tree + QStringLiteral("; b; [a[a1 a2] b+!]"));
    row("a row below a blocked one keeps its own state and flags",
        tree + QStringLiteral("; a; [a+![a1 a2] b]"));
    row("blocked rows take the nearest ancestor that is not blocked",
        "a[b[c[d]]] x; a; c d; [a+[b[c![d!]]] x]");
    row("a blocked chain up to the top reads as ticked", "a[b[c]];; a b c; [a+![b+![c+!]]]");
    row("rows sharing a name share its state", "a[x] b[x]; x;; [a[x+] b[x+]]");
}

void TstChoiceProxies::readState()
{
    QFETCH(QString, tree);
    QFETCH(QString, checked);
    QFETCH(QString, blocked);
    QFETCH(QString, expected);

    // Blocked rows lose every flag, even "enabled"; the model tester still walks below them,
    // so their structure must stay whole while they cannot be selected.
    setUp(tree);
    _choice->setCheckedBlockedNames(names(checked), names(blocked));
    QCOMPARE(stateToString(_choice), expected);

    // The block role reads the same state; the display is the source's.
    for (const QString &id : names(tree.replace('[', ' ').replace(']', ' '))) {
        const QModelIndex index = choiceIndex(id);
        QCOMPARE(index.data(BlockRole), index.data(ChoiceRole));
        QCOMPARE(index.data().toString(), id);
    }
}

void TstChoiceProxies::stateIsAlwaysABool()
{
    // A check-state role still reads as a bool. The model tester accepts it only because a
    // ticked row converts to 1, which it takes for a partial check state.
    setUp("a b", Qt::CheckStateRole);
    _choice->setCheckedNames({"a"});
    const QVariant ticked = _choice->index(0, 0).data(Qt::CheckStateRole);
    const QVariant unticked = _choice->index(1, 0).data(Qt::CheckStateRole);
    QCOMPARE(ticked.userType(), int(QMetaType::Bool));
    QCOMPARE(unticked.userType(), int(QMetaType::Bool));
    QCOMPARE(ticked.toInt(), 1);
    QCOMPARE(unticked.toInt(), 0);
    QCOMPARE(_choice->index(0, 0).data(BlockRole), QVariant(true));
}

void TstChoiceProxies::otherRolesAndColumnsPassThrough()
{
    // Flat rows: only a one-column tree may nest under the model tester.
    setUp("a|x b|y", ChoiceRole, 2, 1);
    _choice->setCheckedBlockedNames({"y"}, {"x"});
    QCOMPARE(stateToString(_choice), QStringLiteral("[a+! b+]"));
    // The name column decides; the choice role elsewhere is the source's (nothing here).
    QVERIFY(!_choice->index(1, 0).data(ChoiceRole).isValid());
    QCOMPARE(_choice->index(1, 0).data(Qt::UserRole + 2), QVariant("b"));
    // A blocked row has no flags in any column.
    QCOMPARE(_choice->flags(_choice->index(0, 0)), Qt::NoItemFlags);
    QCOMPARE(_choice->flags(_choice->index(0, 1)), Qt::NoItemFlags);
    QCOMPARE(_choice->flags(_choice->index(1, 0)), _model->flags(_model->index(1, 0)));
    QVERIFY(!_choice->setData(_choice->index(1, 0), true, ChoiceRole));
    QVERIFY(!_choice->setData(_choice->index(1, 1), true, Qt::EditRole));
    QVERIFY(_choice->setData(_choice->index(1, 1), false, ChoiceRole));
    QCOMPARE(_choice->removeNames(), QSet<QString> {"y"});

    QStringListModel strings({"a"});
    QVERIFY(!_choice->data(strings.index(0, 0), ChoiceRole).isValid());
    QVERIFY(!_choice->setData(strings.index(0, 0), true, ChoiceRole));
}

void TstChoiceProxies::writeState_data()
{
    // writes: name=value with the value as an int; results: what setData() answered.
    columns({"checked", "blocked", "writes", "results", "expectedChecked", "added", "removed",
             "emitted"});
    const char *a = "dataChanged(a,a) stateChanged";
    const char *b = "dataChanged(b,b) stateChanged";
    row("unticking a checked name records a removal", QStringLiteral("a;; a=0; 1;;; a; ") + a);
    row("ticking it again leaves no difference",
        QStringLiteral("a;; a=0 a=2; 1 1; a;;; %1 %1").arg(a));
    row("ticking a new name records an addition", QStringLiteral("a;; b=2; 1; a b; b;; ") + b);
    row("unticking it again leaves no difference",
        QStringLiteral("a;; b=2 b=0; 1 1; a;;; %1 %1").arg(b));
    row("a partial check ticks", QStringLiteral(";; b=1; 1; b; b;; ") + b);
    row("a write that changes nothing is refused silently", "a;; a=2 b=0 a=1; 0 0 0; a;;;");
    row("a blocked name cannot be ticked or unticked", "a1; a1; a1=2 a1=0; 0 0; a1;;;");
    row("a row below a blocked one can be ticked",
        "; a; a1=2; 1; a1; a1;; dataChanged(a1,a1) stateChanged");
    row("both difference sets at once",
        QStringLiteral("a a1;; a=0 b=2 a1=0; 1 1 1; b; b; a a1; %1 %2 ").arg(a, b)
            + "dataChanged(a1,a1) stateChanged");
}

void TstChoiceProxies::writeState()
{
    QFETCH(QString, checked);
    QFETCH(QString, blocked);
    QFETCH(QString, writes);
    QFETCH(QString, results);
    QFETCH(QString, expectedChecked);
    QFETCH(QString, added);
    QFETCH(QString, removed);
    QFETCH(QString, emitted);

    setUp("a[a1 a2] b");
    _choice->setCheckedBlockedNames(names(checked), names(blocked));
    _log.clear();
    QStringList answers;
    for (const QString &write : words(writes)) {
        const QStringList parts = write.split(QLatin1Char('='));
        answers.append(QString::number(
            _choice->setData(choiceIndex(parts.at(0)), parts.at(1).toInt(), ChoiceRole)));
    }
    QCOMPARE(answers.join(QLatin1Char(' ')), results);
    QCOMPARE(_choice->checkedNames(), names(expectedChecked));
    QCOMPARE(_choice->addNames(), names(added));
    QCOMPARE(_choice->removeNames(), names(removed));
    QCOMPARE(_log, words(emitted));
}

void TstChoiceProxies::writesOverAModelWithoutNodes()
{
    // Only node-tree models are ticked by name; the state of any other model is its own.
    QStandardItemModel items(2, 1);
    items.setItem(0, new QStandardItem("a"));
    items.setItem(1, new QStandardItem("b"));
    ChoiceTreeNodeProxyModel choice(0, ChoiceRole, BlockRole);
    choice.setSourceModel(&items);
    attach(&choice);
    QVERIFY(choice.setData(choice.index(0, 0), true, ChoiceRole));
    QCOMPARE(items.item(0)->data(ChoiceRole), QVariant(true));
    QVERIFY(choice.checkedNames().isEmpty());
    QVERIFY(choice.addNames().isEmpty());
    QCOMPARE(choice.index(0, 0).data(ChoiceRole), QVariant(false));
    QCOMPARE(choice.toTreeNode(choice.index(0, 0)), nullptr);
}

void TstChoiceProxies::setters_data()
{
    columns({"call", "expectedChecked", "expectedBlocked", "added", "removed", "emitted"});
    // Start: checked {a a1}, blocked {a2}; the user has since unticked a1 and ticked b.
    const QString reset = QStringLiteral("aboutToBeReset reset stateChanged");
    row("new checked names forget the differences", "checked a; a; a2;;; " + reset);
    row("the current checked names change nothing", "checked a b; a b; a2; b; a1;");
    row("new blocked names keep the differences", "blocked a; a b; a; b; a1; " + reset);
    row("the current blocked names change nothing", "blocked a2; a b; a2; b; a1;");
    row("both sets within one reset", "both a1|a b; a1; a b; b; a1; " + reset);
    row("both sets, only the blocked one new", "both a b|; a b;; b; a1; " + reset);
    row("both current sets change nothing", "both a b|a2; a b; a2; b; a1;");
    row("clearing the differences is silent", "clear; a b; a2;;;");
}

void TstChoiceProxies::setters()
{
    QFETCH(QString, call);
    QFETCH(QString, expectedChecked);
    QFETCH(QString, expectedBlocked);
    QFETCH(QString, added);
    QFETCH(QString, removed);
    QFETCH(QString, emitted);

    setUp("a[a1 a2] b");
    _choice->setCheckedBlockedNames({"a", "a1"}, {"a2"});
    QVERIFY(_choice->setData(choiceIndex("a1"), false, ChoiceRole));
    QVERIFY(_choice->setData(choiceIndex("b"), true, ChoiceRole));
    _log.clear();

    const QString verb = call.section(QLatin1Char(' '), 0, 0);
    const QString argument = call.section(QLatin1Char(' '), 1);
    if (verb == QLatin1String("checked"))
        _choice->setCheckedNames(names(argument));
    else if (verb == QLatin1String("blocked"))
        _choice->setBlockedNames(names(argument));
    else if (verb == QLatin1String("both"))
        _choice->setCheckedBlockedNames(names(argument.section('|', 0, 0)),
                                        names(argument.section('|', 1)));
    else
        _choice->clearAddRemoveNames();

    QCOMPARE(_log, words(emitted));
    QCOMPARE(_choice->checkedNames(), names(expectedChecked));
    QCOMPARE(_choice->blockedNames(), names(expectedBlocked));
    QCOMPARE(_choice->addNames(), names(added));
    QCOMPARE(_choice->removeNames(), names(removed));
}

void TstChoiceProxies::filterProxies_data()
{
    // role: "choice" or "check" (Qt::CheckStateRole). Then the rows of the ticked and unticked
    // proxies, and of the text-filtering ticked and unticked ones.
    columns({"tree", "role", "checked", "blocked", "pattern", "showChecked", "showUnchecked",
             "filterChecked", "filterUnchecked"});
    const char *tree = "a[a1 a2] b c;";
    row("ticked and unticked rows part",
        tree + QStringLiteral("choice; a a1 c;;; [a[a1] c]; [b]; [a[a1] c]; [b]"));
    row("an unticked parent hides its ticked children",
        tree + QStringLiteral("choice; a1;;; []; [a[a2] b c]; []; [a[a2] b c]"));
    row("blocked rows are shown by the state they read",
        tree + QStringLiteral("choice; a; a2 b;; [a[a2] b]; [c]; [a[a2] b]; [c]"));
    row("supplement nodes are hidden only by the text-filtering proxies",
        "a#1 b#2 c; choice; a b;;; [a b]; [c]; [b]; [c]");
    row("the expression narrows only the text-filtering proxies",
        tree + QStringLiteral("choice; a a2 c;; ^[ab]; [a[a2] c]; [b]; [a[a2]]; [b]"));
    row("under the check-state role every row counts as unticked",
        tree + QStringLiteral("check; a a1 a2;;; []; [a[a1 a2] b c]; []; [a[a1 a2] b c]"));
    row("under the check-state role blocked rows count as unticked too",
        tree + QStringLiteral("check;; b;; []; [a[a1 a2] b c]; []; [a[a1 a2] b c]"));
}

void TstChoiceProxies::filterProxies()
{
    QFETCH(QString, tree);
    QFETCH(QString, role);
    QFETCH(QString, checked);
    QFETCH(QString, blocked);
    QFETCH(QString, pattern);
    QFETCH(QString, showChecked);
    QFETCH(QString, showUnchecked);
    QFETCH(QString, filterChecked);
    QFETCH(QString, filterUnchecked);

    setUp(tree, role == QLatin1String("check") ? int(Qt::CheckStateRole) : ChoiceRole);
    _filterChecked->setFilterRegExp(pattern);
    _filterUnchecked->setFilterRegExp(pattern);
    _choice->setCheckedBlockedNames(names(checked), names(blocked));
    QCOMPARE(modelToString(_checked), showChecked);
    QCOMPARE(modelToString(_unchecked), showUnchecked);
    QCOMPARE(modelToString(_filterChecked), filterChecked);
    QCOMPARE(modelToString(_filterUnchecked), filterUnchecked);
}

void TstChoiceProxies::treeChanges_data()
{
    columns({"change", "state", "showChecked", "filterUnchecked"});
    // Start: [a[a1 a2] b c], checked {a a1 x}, blocked {a2 y}.
    row("an inserted row with a checked name reads as ticked",
        "insert root 0 x z; [x+ z a+[a1+ a2+!] b c]; [x a[a1 a2]]; [z b c]");
    row("an inserted blocked row follows its parent",
        "insert b 0 y; [a+[a1+ a2+!] b[y!] c]; [a[a1 a2]]; [b[y] c]");
    row("an inserted blocked row at the top reads as ticked",
        "insert root 1 y#1; [a+[a1+ a2+!] y+! b c]; [a[a1 a2] y]; [b c]");
    row("removing a ticked row keeps its name ticked",
        "remove a 0 1; [a+[a2+!] b c]; [a[a2]]; [b c]");
    row("removing a ticked parent empties the ticked view", "remove root 0 1; [b c]; []; [b c]");
    row("reload", "reload; [b x+[y+!]]; [x[y]]; [b]");
}

void TstChoiceProxies::treeChanges()
{
    QFETCH(QString, change);
    QFETCH(QString, state);
    QFETCH(QString, showChecked);
    QFETCH(QString, filterUnchecked);

    setUp("a[a1 a2] b c");
    _choice->setCheckedBlockedNames({"a", "a1", "x"}, {"a2", "y"});
    const QStringList args = words(change);
    TreeNode *parent
        = args.size() > 1 && args.at(1) != QLatin1String("root") ? find(args.at(1)) : _root;
    if (args.first() == QLatin1String("insert")) {
        parent->insert(args.at(2).toInt(), buildNodes(args.mid(3).join(' '), _owner.get()));
    } else if (args.first() == QLatin1String("remove")) {
        parent->removeAt(args.at(2).toInt(), args.at(3).toInt());
    } else {
        _model->nodesAboutToBeReset();
        _root->loadTreeFromList({new TestNode(0, "root", "x", _owner.get()),
                                 new TestNode(1, "x", "y", _owner.get()),
                                 new TestNode(0, "root", "b", _owner.get())});
        _model->nodesReset();
    }
    QCOMPARE(stateToString(_choice), state);
    QCOMPARE(modelToString(_checked), showChecked);
    QCOMPARE(modelToString(_filterUnchecked), filterUnchecked);
    QCOMPARE(_choice->checkedNames(), names("a a1 x"));
}

void TstChoiceProxies::nodesThroughChoiceProxies()
{
    setUp("a[a1 a2] b");
    _choice->setCheckedNames({"a", "a2"});
    QCOMPARE(_checked->rootNode(), _root);
    QCOMPARE(_choice->toTreeNode(QModelIndex()), _root);
    for (const char *id : {"a", "a1", "b"})
        QCOMPARE(_choice->toTreeNode(_choice->treeNodeToIndex(find(id))), find(id));
    QVERIFY(!_choice->treeNodeToIndex(new TestNode("stranger", _owner.get())).isValid());
    QCOMPARE(_choice->toTreeNode(_model->index(0, 0)), nullptr);

    // Through a filter proxy on top, hidden rows have no index.
    QCOMPARE(_checked->toTreeNode(_checked->treeNodeToIndex(find("a2"))), find("a2"));
    QVERIFY(!_checked->treeNodeToIndex(find("a1")).isValid());

    QItemSelection selection(_choice->index(1, 0), _choice->index(1, 0));
    selection.select(_choice->index(0, 0), _choice->index(1, 0));
    QCOMPARE(_choice->toTreeNode(selection), (QList<TreeNode *> {find("b"), find("a")}));
}

QTEST_GUILESS_MAIN(TstChoiceProxies)

#include "tst_choiceproxies.moc"
