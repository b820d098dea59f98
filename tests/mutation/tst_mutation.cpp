// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Seeded random steps change a node tree, model settings and tasks; after each step every model
// is compared whole with an oracle computed from the nodes alone, under Fatal model testers.
// `--seed N --steps M` replays a failure; `--seeds K --steps M` searches seeds 1..K.

#include "../task/testtasks.h"
#include "element/elementmodel.h"
#include "element/elementroottreenode.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "element/ordinaryelement.h"
#include "element/selectableelementsortfilterproxymodel.h"
#include "plugin/module.h"
#include "signalrecorder.h"
#include "task/taskobserver.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/choicetreenodesortfilterproxymodel.h"
#include "widgets/configurecheckmodel.h"
#include "widgets/elementswidgetproxymodel.h"
#include "widgets/nodeswidgetproxymodel.h"

#include <QApplication>
#include <QtTest>

#include <random>

namespace {

const int ChoiceRole = Qt::UserRole + 20;
const QString Undefined = QStringLiteral("Undefined"); // the group every element starts in
const QStringList Titles {"ab", "ba", "c1", "c2", "d", "a1b"};
const QStringList Groups {Undefined, "g1", "g2"};
const QStringList Patterns {"", "a", "^c", "1", "b$", "[", "x"};
const QStringList StatusTexts {"processing", "fail", "success", "warning", "about to be stop"};
const QList<int> Outcomes {2, 2, 1, 3}; // success, success, fail, warning

// The kinds of step, each as often as its weight.
const QStringList Steps
    = QStringLiteral("insert insert insert removeAt removeAt reload extras data "
                     "data group filters delete names names tick tick tick "
                     "perform perform complete complete checks checks checks")
          .split(' ');
int seedFrom = 1, seedTo = 20, stepCount = 300;
QString where; // the seed, step and step kind under way, printed when a fatal tester stops the run

// An element with settable flags and group. The tree has one column: the tree model answers a
// row's children under every column, with column-0 parents, which the tester rejects.
class Node : public OrdinaryElement
{
public:
    using OrdinaryElement::OrdinaryElement;
    QString caption() const override { return _title; }
    int treeNodeSpecialFlags() const override { return flags; }
    void place(int depth, const QString &id) { _expectedDepth = depth, _expectedParentId = id; }
    void retitle(const QString &title) { _title = title; }
    QString &ownGroup() { return _groupElementType; }
    int flags = 0;
};

// The node proxies leave a childless row without a mapping until it gains rows; this twin builds
// one whenever asked, as the base class does, and must be told every change the same way.
template<typename Proxy> class Mapped : public Proxy
{
public:
    using Proxy::Proxy;
    int rowCount(const QModelIndex &parent = {}) const override
    {
        return QSortFilterProxyModel::rowCount(parent);
    }
};

using Path = QList<Node *>; // the ancestors of a row as the model shows them, top first
using Oracle = std::pair<QAbstractItemModel *, std::function<QString()>>;

struct TaskRow
{
    Task *task;
    int id, status, outcome; // its message shows once it has run
};

QString list(const QStringList &rows)
{
    return rows.isEmpty() ? QString() : '[' + rows.join(' ') + ']';
}

} // namespace

class tst_Mutation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        static QtMessageHandler previous = nullptr;
        previous = qInstallMessageHandler(
            [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
                if (type == QtFatalMsg)
                    fprintf(stderr, "mutation: stopped at %s\n", qPrintable(where));
                previous(type, context, message);
            });
        // One worker runs the tasks in the order they came, each when the seed lets the gate open,
        // so a seed replays exactly.
        _observer = TaskObserver::instance();
        _pool.reset(new Pool(1));
        Ledger probe(1);
        QVERIFY(Pool::open(new Task(&probe, 0)));
        QTRY_COMPARE(probe.deletions(), 1);
        _taskGuard.reset(new ModelTesterGuard(_observer->model()));
    }
    void cleanupTestCase()
    {
        if (_owner) // a failed step left its seed built, its tasks waiting on the gate
            teardown();
        _taskGuard.reset(), _pool.reset(), delete _observer;
    }
    void randomSteps();

private:
    int rnd(int n) { return n > 0 ? int(_random() % unsigned(n)) : 0; }
    template<typename T> T pick(const QList<T> &list) { return list.at(rnd(list.size())); }
    Node *newNode(bool inPool = true)
    {
        auto *node = new Node(*_module, &Module::defaultTrue);
        node->setParent(_owner), node->setId(QStringLiteral("i%1").arg(_nextKey++));
        node->retitle(pick(Titles)), node->flags = rnd(4);
        return inPool ? _nodes << node, node : node;
    }
    TreeNode *anyParent()
    {
        const QList<TreeNode *> nodes = _root->allChildNodes();
        return nodes.isEmpty() || !rnd(3) ? _root : pick(nodes);
    }
    QSet<QString> pickNames()
    {
        return rnd(4) ? QSet<QString> {pick(Titles), pick(Titles)} : QSet<QString>();
    }
    // A blocked name follows its nearest changeable ancestor; blocked to the top reads ticked.
    bool choiceValue(Node *node, const Path &path) const
    {
        Path line = path + Path {node};
        while (!line.isEmpty() && _blocked.contains(line.last()->title()))
            line.removeLast();
        return line.isEmpty() || _checked.contains(line.last()->title());
    }
    /** Watches @p model and compares it after each step with the nodes or the check list. */
    template<typename M>
    M *addModel(M *model, QAbstractItemModel *source = nullptr, bool checkList = false)
    {
        if (auto *proxy = qobject_cast<QAbstractProxyModel *>(model))
            proxy->setSourceModel(source);
        where = QStringLiteral("the start of a seed, watching ") + model->metaObject()->className();
        new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                     model);
        while (auto *proxy = qobject_cast<QAbstractProxyModel *>(source))
            source = proxy->sourceModel();
        const bool extras = !qobject_cast<ElementModel *>(source ? source : model);
        _models << model;
        _oracles << Oracle {model, [=] {
                                return checkList ? checkRows(qobject_cast<CheckMiscModel *>(model))
                                                 : expect(model, _root->childNodes(), extras);
                            }};
        return model;
    }
    bool shows(QAbstractItemModel *model, Node *node, const Path &path) const
    {
        auto *proxy = dynamic_cast<TreeNodeSortFilterProxyModel *>(model);
        auto *checked = dynamic_cast<ChoiceTreeNodeSortFilterProxyModel *>(model);
        auto *unchecked = dynamic_cast<ChoiceFilterTreeNodeSortFilterProxyModel *>(model);
        auto *filter = dynamic_cast<FilterTreeNodeSortFilterProxyModel *>(model);
        auto *group = dynamic_cast<GroupInvisibleElementSortFilterProxyModel *>(model);
        const int flags = proxy && !checked ? proxy->specialFlagsFilter() : 0;
        const QRegExp regExp = proxy ? proxy->filterRegExp() : QRegExp();
        // Accept columns name source columns; column 1 does not exist and so never matches.
        const QSet<int> columns = filter ? filter->acceptColumns() : QSet<int>();
        QString inherited = node->ownGroup();
        for (int i = path.size() - 1; i >= 0 && inherited == Undefined; --i)
            inherited = path.at(i)->ownGroup();
        if (((flags & 1) && (node->flags & 1)) || ((flags & 2) && !(node->flags & 2))
            || (!path.isEmpty() && qobject_cast<NodesWidgetProxyModel *>(model)))
            return false;
        if (qobject_cast<ElementsWidgetProxyModel *>(model)) // column 0 alone: none to search
            return path.isEmpty() && !regExp.isValid() + regExp.isEmpty();
        if (filter && !regExp.isEmpty() && regExp.isValid()
            && ((!columns.isEmpty() && !columns.contains(0)) || regExp.indexIn(node->title()) < 0))
            return false;
        if (checked || unchecked)
            return choiceValue(node, path)
                == (checked ? checked->showChecked() : unchecked->showChecked());
        return !group || group->groupElementType() == Undefined
            || inherited == group->groupElementType();
    }
    QString expect(QAbstractItemModel *model, const QList<TreeNode *> &nodes, bool extras,
                   const Path &path = {}) const
    {
        auto *selectable = qobject_cast<SelectableElementSortFilterProxyModel *>(model);
        const bool groups
            = selectable && selectable->selectionDisplayRole() == Element::GroupElementTypeRole;
        QStringList rows;
        for (TreeNode *treeNode :
             (extras ? _treeModel->extraRootChildNodes() : QList<TreeNode *>()) + nodes) {
            auto *node = static_cast<Node *>(treeNode);
            const QString state = model != _choice ? QString()
                                                   : QString(choiceValue(node, path) ? "+" : "")
                    + (_blocked.contains(node->title()) ? "!" : "");
            if (shows(model, node, path))
                rows << (!model->columnCount() ? "?"
                                               : (groups ? node->ownGroup() : node->title() + state)
                                 + '#' + node->id()
                                 + expect(model, node->childNodes(), false, path + Path {node}));
        }
        return list(rows);
    }
    /** Every row: its columns' display texts and the node the model maps it to. */
    QString dump(const QAbstractItemModel *model, const QModelIndex &parent = {}) const
    {
        QStringList rows;
        auto *nodes = dynamic_cast<const TreeNodeModelExtension *>(model);
        for (int row = 0; row < model->rowCount(parent); ++row) {
            const QModelIndex index = model->index(row, 0, parent);
            QStringList texts;
            for (int column = 0; column < model->columnCount(parent); ++column)
                texts << index.sibling(row, column).data().toString();
            const QVariant check = index.data(Qt::CheckStateRole);
            TreeNode *node = nodes ? nodes->toTreeNode(index) : nullptr;
            QString text = texts.join('|')
                + (model != _choice ? ""
                                    : QString(index.data(ChoiceRole).toBool() ? "+" : "")
                           + (_choice->flags(index) ? "" : "!"));
            text += !nodes ? (check.isValid() ? check.toInt() ? "+" : "-" : "")
                    + QString(model->flags(index) & Qt::ItemIsEnabled ? "" : "!")
                           : '#' + (node ? node->id() : "null")
                    + (node && nodes->treeNodeToIndex(node) != index ? "(index differs)" : "");
            rows << (index.isValid() ? text + dump(model, index) : "?"); // "?": no columns
        }
        return list(rows);
    }
    void build(unsigned seed)
    {
        _random.seed(seed);
        _owner = new QObject;
        _module.reset(new Module(QStringLiteral("mutation"), nullptr, false));
        _root = new ElementRootTreeNode(_owner);
        _checked = _blocked = {};
        _items.clear(), _now.clear(), _loaded.clear(), _modes.clear();
        for (int i = 0; i < 12; ++i)
            if (Node *node = newNode(); rnd(3))
                anyParent()->append(node);

        _treeModel = addModel(new TreeNodeModel(_root));
        auto *columnsProxy = addModel(new TreeNodeSortFilterProxyModel(rnd(4)), _treeModel);
        auto *filterProxy = addModel(new FilterTreeNodeSortFilterProxyModel(rnd(4)), _treeModel);
        auto *filterTwin = addModel(
            new Mapped<FilterTreeNodeSortFilterProxyModel>(filterProxy->specialFlagsFilter()),
            _treeModel);
        _choice = addModel(new ChoiceTreeNodeProxyModel(0, ChoiceRole, ChoiceRole + 1), _treeModel);
        addModel(new ChoiceTreeNodeSortFilterProxyModel(true), _choice); // the fifth model
        auto *unticked = addModel(new ChoiceFilterTreeNodeSortFilterProxyModel(false), _choice);
        auto *elementModel = addModel(new ElementModel(_root));
        addModel(new ElementSortFilterProxyModel(rnd(4)), elementModel);
        auto *groupProxy = addModel(new GroupInvisibleElementSortFilterProxyModel, elementModel);
        auto *groupTwin
            = addModel(new Mapped<GroupInvisibleElementSortFilterProxyModel>, elementModel);
        for (auto pair :
             {std::pair<QAbstractItemModel *, QAbstractItemModel *> {filterProxy, filterTwin},
              {groupProxy, groupTwin}})
            _twins << std::pair {new OvtTest::SignalRecorder(pair.first, pair.first),
                                 new OvtTest::SignalRecorder(pair.second, pair.second)};
        auto setGroup = [=](const QString &group, bool force) {
            groupProxy->setGroupElementType(group, force);
            groupTwin->setGroupElementType(group, force);
        };
        auto *selectableProxy = addModel(new SelectableElementSortFilterProxyModel, elementModel);
        const QList<QSortFilterProxyModel *> filters {
            filterProxy, unticked, addModel(new ListWidgetProxyModel(rnd(4)), elementModel),
            addModel(new NodesWidgetProxyModel(rnd(4)), elementModel),
            addModel(new ElementsWidgetProxyModel(rnd(4)), elementModel)};
        const QList<CheckMiscModel *> checks {addModel(new CheckMiscModel, nullptr, true),
                                              addModel(new ConfigureCheckModel, nullptr, true)};
        _oracles << Oracle {_observer->model(), [this] {
                                QStringList rows;
                                for (const TaskRow &row : qAsConst(_tasks))
                                    rows << QStringLiteral("t%1|%2|").arg(row.id).arg(
                                                StatusTexts.value(row.status))
                                            + (row.status ? QStringLiteral("m%1").arg(row.id) : "");
                                return list(rows);
                            }};

        _step = [=](const QString &kind) {
            if (kind == "insert") { // detached or new nodes anywhere, sometimes out of range
                TreeNode *parent = anyParent();
                QList<TreeNode *> list;
                for (Node *node : qAsConst(_nodes))
                    if (!node->parentNode() && list.size() < 3 && rnd(2))
                        list << node;
                if (list.isEmpty() || _nodes.size() < 40)
                    list << newNode();
                parent->insert(rnd(parent->childNodesCount() + 3) - 1, list);
            } else if (kind == "removeAt") { // sometimes past the end
                TreeNode *parent = anyParent();
                const int pos = rnd(parent->childNodesCount() + 1);
                parent->removeAt(pos, rnd(4));
            } else if (kind == "reload") { // some name a missing parent or skip a level
                const bool paired = rnd(2);
                if (paired)
                    _treeModel->nodesAboutToBeReset(), elementModel->nodesAboutToBeReset();
                QList<TreeNode *> list;
                for (Node *node : qAsConst(_nodes))
                    node->parentNode() ? void(node->parentNode()->removeOne(node)) : void();
                for (Node *node : qAsConst(_nodes)) {
                    if (!rnd(5))
                        continue;
                    auto *parent
                        = list.isEmpty() || !rnd(3) ? nullptr : static_cast<Node *>(pick(list));
                    const int depth = (parent ? parent->expectedDepth() + 1 : 1) + !rnd(10);
                    node->place(depth, !parent ? QString() : rnd(12) ? parent->id() : "i?");
                    list << node;
                }
                _root->loadTreeFromList(list);
                paired ? _treeModel->nodesReset(), elementModel->nodesReset() : void();
            } else if (kind == "extras") { // new ones, or none
                QList<TreeNode *> extras;
                for (int i = rnd(3); i > 0; --i)
                    extras << newNode(false);
                extras.isEmpty() && rnd(2) ? _treeModel->deleteExtraRootChildNodes()
                                           : _treeModel->setExtraRootChildNodes(extras);
            } else if (kind == "data") { // a title or flags, told by the node or its parent
                Node *node = pick(_nodes);
                rnd(2) ? void(node->flags = rnd(4)) : node->retitle(pick(Titles));
                rnd(3) || !node->parentNode() ? node->emitNodeDataChanged()
                                              : node->parentNode()->emitNodeChildsDataChanged();
            } else if (kind == "group") { // descendants inherit a group: the filter is forced
                Node *node = pick(_nodes);
                node->ownGroup() = pick(Groups);
                setGroup(rnd(3) ? groupProxy->groupElementType() : pick(Groups), true);
            } else if (kind == "filters") {
                QSortFilterProxyModel *filtered = pick(filters);
                const QRegExp pattern(pick(Patterns));
                filtered->setFilterRegExp(pattern);
                filtered == filterProxy ? filterTwin->setFilterRegExp(pattern) : void();
                TreeNodeSortFilterProxyModel *columns = rnd(2) ? filterProxy : columnsProxy;
                const QSet<int> accept = pick(QList<QSet<int>> {{}, {0}, {0, 1}});
                columns->setAcceptColumns(accept);
                columns == filterProxy ? filterTwin->setAcceptColumns(accept) : void();
                setGroup(pick(Groups), false);
                selectableProxy->setSelectionDisplayRole(
                    pick(QList<int> {0, Element::TitleRole, Element::GroupElementTypeRole}));
            } else if (kind == "delete" && _nodes.size() > 1) { // the other steps need one
                delete _nodes.takeAt(rnd(_nodes.size())); // its children stay, detached
            } else if (kind == "names") {
                _checked = rnd(2) ? _checked : pickNames(),
                _blocked = rnd(2) ? _blocked : pickNames();
                rnd(2) ? _choice->setCheckedBlockedNames(_checked, _blocked)
                       : _choice->setBlockedNames(_blocked);
                _choice->setCheckedNames(_checked);
            } else if (kind == "tick") { // the user ticks or unticks a row
                QModelIndex index;
                for (int depth = 0; depth < 4 && _choice->rowCount(index); ++depth)
                    index = _choice->index(rnd(_choice->rowCount(index)), 0, index);
                const QString name = index.data().toString();
                const bool before = index.data(ChoiceRole).toBool();
                const bool tick = index.isValid() && (rnd(4) ? !before : before);
                const bool changes = index.isValid() && !_blocked.contains(name) && tick != before;
                QVERIFY2(_choice->setData(index, tick, ChoiceRole) == changes, qPrintable(where));
                changes ? tick ? void(_checked.insert(name)) : void(_checked.remove(name)) : void();
            } else if (kind == "perform") { // a new task, or one already performed again
                if (!_tasks.isEmpty() && _tasks.last().task && (!rnd(4) || _running > 60))
                    return _observer->performTask(_tasks.last().task);
                const int id = _nextTask++, outcome = pick(Outcomes);
                _tasks << TaskRow {new Task(&_ledger, id % 1024, QStringLiteral("t%1").arg(id),
                                            TaskDescription::TaskStatus(outcome),
                                            QStringLiteral("m%1").arg(id), &_gate),
                                   id, 0, outcome};
                ++_running, _observer->performTask(_tasks.last().task);
            } else if (kind == "complete") {
                complete();
            } else if (kind == "checks") { // both lists: loads by name, clears, forbidden pairs
                const int op = rnd(5), n = _items.size(), row = rnd(n + 1) - 1, value = rnd(3);
                const QSet<QString> names = pickNames();
                const bool checked = rnd(2);
                op == 0 ? _items = Titles.mid(rnd(3), rnd(6)), _now.clear() : void();
                for (const QString &item : op == 0 ? _items : QStringList())
                    _now << (names.contains(item) == checked);
                for (CheckMiscModel *model : checks) {
                    op == 0 ? checked ? model->setDataChecked(_items, names)
                                      : model->setDataUnchecked(_items, names)
                            : void();
                    op == 1 ? model->clear() : void();
                    if (op > 2)
                        QVERIFY2(model->setData(model->index(row, 0), value, Qt::CheckStateRole)
                                     == (row >= 0 && _now.at(row) != (value == 2)),
                                 qPrintable(where));
                }
                op == 1 ? _items.clear(), _now.clear() : void();
                for (int i = op == 2 ? (_modes.clear(), rnd(4)) : 0; i > 0; --i)
                    _modes << rnd(n * n + 1);
                op == 2
                    ? static_cast<ConfigureCheckModel *>(checks.last())->setInCmpatibleModes(_modes)
                    : void();
                op > 2 && row >= 0 ? void(_now[row] = value == 2) : void();
                _loaded = op < 2 ? _now : _loaded;
            }
        };
    }
    QString checkRows(CheckMiscModel *model) const
    {
        QStringList rows;
        QSet<QString> add, remove;
        const bool modes = qobject_cast<ConfigureCheckModel *>(model);
        for (int row = 0, n = _items.size(); row < n; ++row) {
            bool locked = false;
            for (int other = 0; other < n; ++other)
                locked |= modes && other != row && _now.at(other)
                    && _modes.contains(qMin(row, other) * n + qMax(row, other));
            rows << _items.at(row) + (locked ? "!" : _now.at(row) ? "+" : "-");
            (_now.at(row) ? add : remove) << _items.at(row);
            (_loaded.at(row) ? add : remove).remove(_items.at(row));
        }
        const bool same = add == model->dataToAdd() && remove == model->dataToRemove();
        return list(rows) + (same ? "" : "{changes differ}");
    }
    // The one worker runs the queue in order: the oldest task ends when the gate lets it.
    void complete()
    {
        auto row
            = std::find_if(_tasks.begin(), _tasks.end(), [](const TaskRow &r) { return r.task; });
        if (row == _tasks.end())
            return;
        const int deletions = _ledger.deletions();
        _gate.open.release();
        QVERIFY2(QTest::qWaitFor([&] { return _ledger.deletions() > deletions; }, 30000),
                 qPrintable(where));
        row->task = nullptr, row->status = row->outcome, --_running;
        _problems += row->status != TaskDescription::Success;
        if (_running == 0 && _problems == 0)
            _tasks.clear();
    }
    void teardown()
    {
        where = QStringLiteral("the end of a seed");
        while (_running > 0)
            complete();
        for (QWidget *widget : QApplication::topLevelWidgets())
            if (auto *dialog = qobject_cast<TaskObserverDialog *>(widget))
                dialog->reject();
        _tasks.clear(), _oracles.clear(), _twins.clear(), _nodes.clear(), _problems = 0;
        while (!_models.isEmpty())
            delete _models.takeLast();
        delete std::exchange(_owner, nullptr);
        _module.reset();
    }

    std::mt19937 _random;
    QObject *_owner = nullptr; // every node, so a teardown deletes them all
    std::unique_ptr<Module> _module;
    ElementRootTreeNode *_root = nullptr;
    QList<Node *> _nodes; // live nodes in the tree or detached, never the extra ones
    QList<QAbstractItemModel *> _models; // sources before the proxies over them
    QList<Oracle> _oracles;
    QList<std::pair<OvtTest::SignalRecorder *, OvtTest::SignalRecorder *>> _twins;
    std::function<void(const QString &)> _step;
    TreeNodeModel *_treeModel = nullptr;
    ChoiceTreeNodeProxyModel *_choice = nullptr;
    QSet<QString> _checked, _blocked;
    int _nextKey = 0;
    QStringList _items; // the check lists' items, checked now and at loading, forbidden pairs
    QList<bool> _now, _loaded;
    QSet<int> _modes;
    TaskObserver *_observer = nullptr;
    std::unique_ptr<ModelTesterGuard> _taskGuard;
    std::unique_ptr<Pool> _pool;
    Gate _gate;
    Ledger _ledger {1024};
    QList<TaskRow> _tasks;
    int _running = 0, _problems = 0, _nextTask = 0;
};

void tst_Mutation::randomSteps()
{
    for (int seed = seedFrom; seed <= seedTo; ++seed) {
        build(unsigned(seed));
        for (int number = 1; number <= stepCount; ++number) {
            where = QStringLiteral("seed %1, step %2 (--seed %1 --steps %2)").arg(seed).arg(number);
            const QString kind = pick(Steps);
            where += ": " + kind, _step(kind);
            for (const auto &[proxy, twin] : qAsConst(_twins))
                if (const QStringList got = proxy->take(), mapped = twin->take(); got != mapped)
                    QFAIL(qPrintable(QStringLiteral("%1\nsignals differ from a twin that maps "
                                                    "every row\n  actual: %2\n  twin:   %3")
                                         .arg(where, got.join(' '), mapped.join(' '))));
            for (const auto &[model, oracle] : qAsConst(_oracles))
                if (const QString expected = oracle(), got = dump(model); expected != got)
                    QFAIL(qPrintable(
                        QStringLiteral("%1\n%2 differs\n  expected: %3\n  actual:   %4")
                            .arg(where, model->metaObject()->className(), expected, got)));
        }
        teardown();
    }
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    app.setOrganizationName("ovt-tests"), app.setApplicationName("tst_mutation");
    QStringList args = app.arguments();
    for (const char *option : {"--seed", "--seeds", "--steps"}) {
        const int at = args.indexOf(QLatin1String(option)), value = args.value(at + 1).toInt();
        if (at <= 0)
            continue;
        if (!qstrcmp(option, "--steps"))
            stepCount = value;
        else
            seedFrom = qstrcmp(option, "--seed") ? 1 : value, seedTo = value;
        args.erase(args.begin() + at, args.begin() + qMin(at + 2, args.size()));
    }
    tst_Mutation test;
    return QTest::qExec(&test, args);
}

#include "tst_mutation.moc"
