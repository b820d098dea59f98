#include "signalrecorder.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"
#include "treenode/treenodesortfilterproxymodel.h"
#include "treestring.h"

#include <QAbstractItemModelTester>
#include <QStringListModel>
#include <QtTest>

#include <memory>

using namespace OvtTest;

class TstTreeNodeSortFilterProxyModel : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void specialFlags_data();
    void specialFlags();
    void regularExpression_data();
    void regularExpression();
    void acceptColumns_data();
    void acceptColumns();
    void setAcceptColumnsAlwaysResets();
    void nodesThroughProxies();
    void selectionsThroughProxies();
    void sourceWithoutNodes();
    void treeChangesUnderProxies_data();
    void treeChangesUnderProxies();

private:
    TreeNode *find(const QString &id) const;
    void attach(QAbstractItemModel *model);
    void setUp(const QString &tree, int columns = 1, int flagsFilter = 0,
               const QSet<int> &acceptColumns = {});

    std::unique_ptr<QObject> _owner;
    TestNode *_root = nullptr;
    TreeNodeModel *_model = nullptr;
    TreeNodeSortFilterProxyModel *_flagsProxy = nullptr;
    FilterTreeNodeSortFilterProxyModel *_filterProxy = nullptr;
};

void TstTreeNodeSortFilterProxyModel::init()
{
    _owner = std::make_unique<QObject>();
    _root = new TestNode(QStringLiteral("root"), _owner.get());
    _model = new TreeNodeModel(_root, _owner.get());
    attach(_model);
    setUp(QString());
}

void TstTreeNodeSortFilterProxyModel::cleanup()
{
    delete _filterProxy;
    delete _flagsProxy;
    delete _model;
    _filterProxy = nullptr;
    _flagsProxy = nullptr;
    _owner.reset();
}

void TstTreeNodeSortFilterProxyModel::attach(QAbstractItemModel *model)
{
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 model);
}

// Rebuilds both proxies over the model, each watched by the model tester, and fills the tree.
void TstTreeNodeSortFilterProxyModel::setUp(const QString &tree, int columns, int flagsFilter,
                                            const QSet<int> &acceptColumns)
{
    delete _filterProxy;
    delete _flagsProxy;
    _flagsProxy = new TreeNodeSortFilterProxyModel(acceptColumns, flagsFilter);
    _flagsProxy->setSourceModel(_model);
    attach(_flagsProxy);
    _filterProxy = new FilterTreeNodeSortFilterProxyModel(acceptColumns, flagsFilter);
    _filterProxy->setSourceModel(_model);
    attach(_filterProxy);
    // The column count is the root's: change it inside the reset pair, as any owner of a tree
    // would, so the proxies hear of it.
    _model->nodesAboutToBeReset();
    _root->setColumnCount(columns);
    _model->nodesReset();
    _root->append(buildNodes(tree, _owner.get()));
}

TreeNode *TstTreeNodeSortFilterProxyModel::find(const QString &id) const
{
    for (TreeNode *node : _root->allChildNodes() + _model->extraRootChildNodes()) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

void TstTreeNodeSortFilterProxyModel::specialFlags_data()
{
    QTest::addColumn<QString>("tree");
    QTest::addColumn<int>("filter");
    QTest::addColumn<QString>("expected");

    const QString tree = QStringLiteral("a#1[a1] b#2[b1 b2#2] c#3 d[d1#1]");
    QTest::newRow("no flag filter shows everything") << tree << 0 << "[a[a1] b[b1 b2] c d[d1]]";
    QTest::newRow("supplement nodes vanish with their descendants") << tree << 1 << "[b[b1 b2] d]";
    QTest::newRow("only selectable nodes, below selectable parents") << tree << 2 << "[b[b2] c]";
    QTest::newRow("both bits: selectable but not supplement") << tree << 3 << "[b[b2]]";
    QTest::newRow("unrelated filter bits are ignored") << tree << 4 << "[a[a1] b[b1 b2] c d[d1]]";
}

void TstTreeNodeSortFilterProxyModel::specialFlags()
{
    QFETCH(QString, tree);
    QFETCH(int, filter);
    QFETCH(QString, expected);

    setUp(tree, 1, filter);
    QCOMPARE(_flagsProxy->specialFlagsFilter(), filter);
    QCOMPARE(modelToString(_flagsProxy), expected);
    QCOMPARE(modelToString(_filterProxy), expected);
}

void TstTreeNodeSortFilterProxyModel::regularExpression_data()
{
    // syntax: "re", "re-i" (case-insensitive), "wildcard" or "fixed".
    columns({"tree", "flags", "pattern", "syntax", "expected"});
    const QString tree = QStringLiteral("alpha[alps beta] beta[alto] gamma#1;");
    row("empty expression shows what the flags allow",
        tree + "1;; re; [alpha[alps beta] beta[alto]]");
    row("invalid expression shows what the flags allow",
        tree + "1; (al; re; [alpha[alps beta] beta[alto]]");
    row("match anywhere in the text", tree + "0; lp; re; [alpha[alps]]");
    row("a parent that does not match hides matching children", tree + "0; ^alt; re; []");
    row("flags are applied before the expression", tree + "1; a$; re; [alpha[beta] beta]");
    row("case-insensitive filter", tree + "0; BETA; re-i; [beta]");
    row("case-sensitive filter", tree + "0; BETA; re; []");
    row("wildcard syntax", tree + "0; g*a; wildcard; [gamma]");
    row("fixed string takes brackets literally", "a(b) ab; 0; (b; fixed; [a(b)]");
}

void TstTreeNodeSortFilterProxyModel::regularExpression()
{
    QFETCH(QString, tree);
    QFETCH(QString, flags);
    QFETCH(QString, pattern);
    QFETCH(QString, syntax);
    QFETCH(QString, expected);

    setUp(tree, 1, flags.toInt());
    const QRegExp::PatternSyntax patternSyntax = syntax == QLatin1String("wildcard")
        ? QRegExp::Wildcard
        : syntax == QLatin1String("fixed") ? QRegExp::FixedString
                                           : QRegExp::RegExp;
    _filterProxy->setFilterRegExp(
        QRegExp(pattern, syntax == QLatin1String("re-i") ? Qt::CaseInsensitive : Qt::CaseSensitive,
                patternSyntax));
    QCOMPARE(modelToString(_filterProxy), expected);
}

void TstTreeNodeSortFilterProxyModel::acceptColumns_data()
{
    QTest::addColumn<QSet<int>>("columns");
    QTest::addColumn<QString>("pattern");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<QStringList>("headers");

    // Rows are read in the proxy's first column, which is the first accepted source column.

    const QStringList all {"column 0", "column 1", "column 2"};
    const QStringList outer {"column 0", "column 2"};
    QTest::newRow("no accept columns: every column is searched") << QSet<int>() << "two"
                                                                 << "[b]" << all;
    QTest::newRow("a text only in a hidden column keeps no row") << QSet<int> {0, 2} << "two"
                                                                 << "[]" << outer;
    QTest::newRow("a text in an accepted column keeps its row") << QSet<int> {0, 2} << "kilo"
                                                                << "[a]" << outer;
    QTest::newRow("only the second column") << QSet<int> {1} << "o"
                                            << "[one two]" << QStringList {"column 1"};
    QTest::newRow("columns beyond the source are ignored") << QSet<int> {2, 7} << "lima"
                                                           << "[lima]" << QStringList {"column 2"};
}

void TstTreeNodeSortFilterProxyModel::acceptColumns()
{
    QFETCH(QSet<int>, columns);
    QFETCH(QString, pattern);
    QFETCH(QString, expected);
    QFETCH(QStringList, headers);

    // Flat rows: only a one-column tree may nest under the model tester (see the model test).
    setUp("a|one|kilo b|two|lima c|three|mike", 3, 0, columns);
    _filterProxy->setFilterRegExp(pattern);
    QCOMPARE(modelToString(_filterProxy), expected);
    QStringList shown;
    for (int section = 0; section < _filterProxy->columnCount(); ++section)
        shown.append(_filterProxy->headerData(section, Qt::Horizontal).toString());
    QCOMPARE(shown, headers);
    QCOMPARE(_flagsProxy->columnCount(), headers.size());
}

void TstTreeNodeSortFilterProxyModel::setAcceptColumnsAlwaysResets()
{
    setUp("a|x|y b|z|w", 3);
    ModelSignalRecorder recorder(_flagsProxy);
    _flagsProxy->setAcceptColumns({1});
    QCOMPARE(recorder.take(), (QStringList {"aboutToBeReset", "reset"}));
    QCOMPARE(_flagsProxy->columnCount(), 1);
    QCOMPARE(_flagsProxy->index(1, 0).data().toString(), QStringLiteral("z"));

    _flagsProxy->setAcceptColumns({1});
    QCOMPARE(recorder.take(), (QStringList {"aboutToBeReset", "reset"}));
    QCOMPARE(_flagsProxy->acceptColumns(), QSet<int> {1});

    _flagsProxy->setAcceptColumns({});
    QCOMPARE(_flagsProxy->columnCount(), 3);
}

void TstTreeNodeSortFilterProxyModel::nodesThroughProxies()
{
    setUp("a[a1 a2#1] b c#1", 1, 1);
    // A proxy stacked on a proxy still reaches the nodes.
    FilterTreeNodeSortFilterProxyModel stacked(0);
    stacked.setSourceModel(_flagsProxy);
    attach(&stacked);
    stacked.setFilterRegExp(QStringLiteral("^[ab]"));

    for (TreeNodeModelExtension *extension : {static_cast<TreeNodeModelExtension *>(_flagsProxy),
                                              static_cast<TreeNodeModelExtension *>(&stacked)}) {
        QCOMPARE(extension->rootNode(), _root);
        QCOMPARE(extension->toTreeNode(QModelIndex()), _root);
        for (const char *id : {"a", "a1", "b"}) {
            const QModelIndex index = extension->treeNodeToIndex(find(id));
            QVERIFY2(index.isValid(), id);
            QCOMPARE(extension->toTreeNode(index), find(id));
        }
        QVERIFY(!extension->treeNodeToIndex(find("c")).isValid());
        QVERIFY(!extension->treeNodeToIndex(find("a2")).isValid());
    }
    QCOMPARE(modelToString(&stacked), QStringLiteral("[a[a1] b]"));

    QStringListModel strings({"one"});
    QCOMPARE(_flagsProxy->toTreeNode(strings.index(0, 0)), nullptr);
}

void TstTreeNodeSortFilterProxyModel::selectionsThroughProxies()
{
    setUp("a|1|x b|2|y c|3|z", 3, 0, {1, 2});
    const QModelIndex second = _filterProxy->index(1, 1);
    QCOMPARE(_filterProxy->toTreeNode(second), find("b"));

    QItemSelection selection;
    selection.select(_filterProxy->index(1, 0), _filterProxy->index(2, 1));
    selection.select(_filterProxy->index(0, 1), _filterProxy->index(1, 1));
    QCOMPARE(_filterProxy->toTreeNode(selection.first()),
             (QList<TreeNode *> {find("b"), find("c")}));
    QCOMPARE(_filterProxy->toTreeNode(selection),
             (QList<TreeNode *> {find("b"), find("c"), find("a")}));
    QItemSelection ofModel(_model->index(0, 0), _model->index(1, 0));
    QVERIFY(_filterProxy->toTreeNode(ofModel).isEmpty());
    QVERIFY(_filterProxy->toTreeNode(ofModel.first()).isEmpty());
}

void TstTreeNodeSortFilterProxyModel::sourceWithoutNodes()
{
    QStringListModel strings({"one", "two", "three"});
    FilterTreeNodeSortFilterProxyModel proxy(3);
    attach(&proxy);
    proxy.setSourceModel(&strings);
    QCOMPARE(proxy.rowCount(), 3);
    QCOMPARE(proxy.toTreeNode(proxy.index(0, 0)), nullptr);
    QVERIFY(!proxy.treeNodeToIndex(_root).isValid());
    proxy.setFilterRegExp(QStringLiteral("t"));
    QCOMPARE(proxy.rowCount(), 2);
}

void TstTreeNodeSortFilterProxyModel::treeChangesUnderProxies_data()
{
    columns({"change", "model", "flagsProxy", "filterProxy"});
    // Start: model [a[a1 a2#1] b c], flag filter 1, expression "^[ab]".
    row("insert at the front",
        "insert root 0 x y#1 az; [x y az a[a1 a2] b c]; [x az a[a1] b c]; [az a[a1] b]");
    row("insert in the middle of a hidden run",
        "insert a 1 am an#1; [a[a1 am an a2] b c]; [a[a1 am] b c]; [a[a1 am] b]");
    row("insert at the end by clamping",
        "insert root 99 bz; [a[a1 a2] b c bz]; [a[a1] b c bz]; [a[a1] b bz]");
    row("clamped removal", "remove root 1 9; [a[a1 a2]]; [a[a1]]; [a[a1]]");
    row("removal of a hidden row", "remove a 1 1; [a[a1] b c]; [a[a1] b c]; [a[a1] b]");
    row("extra root nodes", "extras bx cx#1; [bx cx a[a1 a2] b c]; [bx a[a1] b c]; [bx a[a1] b]");
    row("reload from a list", "reload; [b[b1] c]; [b[b1] c]; [b[b1]]");
    row("reload within the reset pair", "pair; [b[b1] c]; [b[b1] c]; [b[b1]]");
}

void TstTreeNodeSortFilterProxyModel::treeChangesUnderProxies()
{
    QFETCH(QString, change);
    QFETCH(QString, model);
    QFETCH(QString, flagsProxy);
    QFETCH(QString, filterProxy);

    setUp("a[a1 a2#1] b c", 1, 1);
    _filterProxy->setFilterRegExp(QStringLiteral("^[ab]"));
    const QStringList args = words(change);
    TreeNode *parent
        = args.size() > 1 && args.at(1) != QLatin1String("root") ? find(args.at(1)) : _root;
    if (args.first() == QLatin1String("insert")) {
        parent->insert(args.at(2).toInt(), buildNodes(args.mid(3).join(' '), _owner.get()));
    } else if (args.first() == QLatin1String("remove")) {
        parent->removeAt(args.at(2).toInt(), args.at(3).toInt());
    } else if (args.first() == QLatin1String("extras")) {
        _model->setExtraRootChildNodes(buildNodes(args.mid(1).join(' '), _owner.get()));
    } else {
        // Within the pair the proxies hear one reset and no rows.
        ModelSignalRecorder recorder(_filterProxy);
        if (args.first() == QLatin1String("pair"))
            _model->nodesAboutToBeReset();
        _root->loadTreeFromList({new TestNode(0, "root", "c", _owner.get()),
                                 new TestNode(1, "b", "b1", _owner.get()),
                                 new TestNode(0, "root", "b", _owner.get())});
        if (args.first() == QLatin1String("pair")) {
            _model->nodesReset();
            QCOMPARE(recorder.recorded(), (QStringList {"aboutToBeReset", "reset"}));
        }
    }
    QCOMPARE(modelToString(_model), model);
    QCOMPARE(modelToString(_flagsProxy), flagsProxy);
    QCOMPARE(modelToString(_filterProxy), filterProxy);
}

QTEST_GUILESS_MAIN(TstTreeNodeSortFilterProxyModel)

#include "tst_treenodesortfilterproxymodel.moc"
