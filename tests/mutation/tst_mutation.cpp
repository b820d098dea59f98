// Seeded random steps change a node tree, the models' settings and the task list; after each
// step every model is read back whole and compared with what an oracle recomputes from the nodes
// alone, while Fatal model testers watch. `--seed N --steps M` replays one seed (a failure prints
// both), `--seeds K --steps M` searches seeds 1..K. A new model is one more addModel() call.

#include "../task/testtasks.h"
#include "element/elementmodel.h"
#include "element/elementroottreenode.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "element/ordinaryelement.h"
#include "element/selectableelementsortfilterproxymodel.h"
#include "plugin/module.h"
#include "task/taskobserver.h"
#include "task/taskobserverdialog.h"
#include "task/taskobservermodel.h"
#include "task/taskperformedevent.h"
#include "treenode/choicefiltertreenodesortfilterproxymodel.h"
#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/choicetreenodesortfilterproxymodel.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"
#include "treenode/treenodemodel.h"

#include <QApplication>
#include <QtTest>

#include <functional>
#include <memory>
#include <random>

namespace {

const int ChoiceRole = Qt::UserRole + 20;
const QString Undefined = QStringLiteral("Undefined"); // the group every element starts in
const QStringList Titles {"ab", "ba", "c1", "c2", "d", "a1b"};
const QStringList Groups {Undefined, "g1", "g2"};
const QStringList Patterns {"", "a", "^c", "1", "b$", "[", "x"};
const QStringList StatusTexts {"processing", "fail", "success", "warning", "about to be stop"};
const QList<TaskDescription::TaskStatus> Outcomes {TaskDescription::Success,
                                                   TaskDescription::Success, TaskDescription::Fail,
                                                   TaskDescription::Warning};

int seedFrom = 1, seedTo = 20, stepCount = 300;
QString where; // the seed and step under way, printed when a fatal tester stops the run

// An element with settable flags and group. The tree has one column: the tree model answers a
// row's children under every column, with column-0 parents, which the tester rejects.
class Node : public OrdinaryElement
{
public:
    Node(Module &module, int key, const QString &title, QObject *owner)
        : OrdinaryElement(module, &Module::defaultTrue)
    {
        setParent(owner);
        _id = QStringLiteral("i%1").arg(key);
        _title = title;
    }
    QString caption() const override { return _title; }
    int treeNodeSpecialFlags() const override { return flags; }
    void place(int depth, const QString &parentId)
    {
        _expectedDepth = depth, _expectedParentId = parentId;
    }
    void retitle(const QString &title) { _title = title; }
    QString &ownGroup() { return _groupElementType; }
    QString title() const { return _title; }
    int flags = 0;
};

using Path = QList<Node *>; // the ancestors of a row as the model shows them, top first
using Accept = std::function<bool(Node *, const Path &)>;
using RowText = std::function<QString(Node *, const Path &)>;
using More = std::function<QString(const QModelIndex &)>;

QString noMore(const QModelIndex &)
{
    return QString();
}

QString sorted(const QSet<QString> &set)
{
    QStringList list(set.begin(), set.end());
    list.sort();
    return '{' + list.join(',') + '}';
}

/** Every row: its columns' display texts, @p more, and the node the model maps it to. */
QString dump(const QAbstractItemModel *model, const More &more, const QModelIndex &parent = {})
{
    QStringList rows;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        QStringList texts;
        for (int column = 0; column < model->columnCount(parent); ++column)
            texts << index.sibling(row, column).data().toString();
        QString text = texts.join('|') + more(index);
        if (auto *nodes = dynamic_cast<const TreeNodeModelExtension *>(model)) {
            TreeNode *node = nodes->toTreeNode(index);
            text += '#' + (node ? node->id() : "null")
                + (node && nodes->treeNodeToIndex(node) != index ? "(index differs)" : "");
        }
        rows << text + dump(model, more, index);
    }
    return rows.isEmpty() ? QString() : '[' + rows.join(' ') + ']';
}

QString expect(const QList<TreeNode *> &nodes, const Accept &accept, const RowText &text,
               const Path &path = {})
{
    QStringList rows;
    for (TreeNode *treeNode : nodes) {
        auto *node = static_cast<Node *>(treeNode);
        if (accept(node, path))
            rows << text(node, path) + '#' + node->id()
                    + expect(node->childNodes(), accept, text, path + Path {node});
    }
    return rows.isEmpty() ? QString() : '[' + rows.join(' ') + ']';
}

struct Adapter
{
    QString name;
    std::function<QString()> actual, expected;
};

struct TaskRow
{
    Task *task;
    QString title, message;
    int status;
    bool pending, stoppable;
};

} // namespace

class tst_Mutation : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanupTestCase()
    {
        _taskGuard.reset();
        delete _observer;
    }
    void randomSteps();
    void sameNameIsNotAnnounced();

private:
    int rnd(int n) { return n > 0 ? int(_random() % unsigned(n)) : 0; }
    template<typename T> T pick(const QList<T> &list) { return list.at(rnd(list.size())); }
    Node *newNode(bool inPool = true)
    {
        auto *node = new Node(*_module, _nextKey++, pick(Titles), _owner);
        node->flags = rnd(4);
        if (inPool)
            _nodes << node;
        return node;
    }
    TreeNode *anyParent()
    {
        const QList<TreeNode *> nodes = _root->allChildNodes();
        return nodes.isEmpty() || !rnd(3) ? _root : pick(nodes);
    }
    QSet<QString> pickNames()
    {
        QSet<QString> set;
        for (const QString &title : Titles)
            if (!rnd(3))
                set.insert(title);
        return set;
    }
    bool choiceValue(Node *node, const Path &path) const
    {
        for (int i = path.size(); i >= 0; --i) {
            const QString name = (i == path.size() ? node : path.at(i))->title();
            if (!_blocked.contains(name))
                return _checked.contains(name);
        }
        return true;
    }
    void addModel(const QString &name, QAbstractItemModel *model, bool extras, Accept accept,
                  RowText text, More more = noMore);
    void build(unsigned seed);
    void reload();
    void tick();
    void complete(Task *task);
    void teardown();

    std::mt19937 _random;
    QObject *_owner = nullptr; // every node, so a teardown deletes them all
    std::unique_ptr<Module> _module;
    ElementRootTreeNode *_root = nullptr;
    QList<Node *> _nodes; // live nodes in the tree or detached, never the extra ones
    QList<QAbstractItemModel *> _models; // sources before the proxies over them
    QList<Adapter> _adapters;
    QList<std::function<void()>> _steps; // each as often as its weight
    TreeNodeModel *_treeModel = nullptr;
    ElementModel *_elementModel = nullptr;
    ChoiceTreeNodeProxyModel *_choice = nullptr;
    QList<QSortFilterProxyModel *> _choiceFilters;
    QSet<QString> _checked, _blocked, _added, _removed;
    int _nextKey = 0;
    QString _what;

    TaskObserver *_observer = nullptr;
    TaskObserverDialog *_dialog = nullptr;
    std::unique_ptr<ModelTesterGuard> _taskGuard;
    Ledger _ledger {1024};
    QList<TaskRow> _tasks;
    int _running = 0, _problems = 0, _nextTask = 0;
};

void tst_Mutation::initTestCase()
{
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-tests"));
    QCoreApplication::setApplicationName(QStringLiteral("tst_mutation"));
    static QtMessageHandler previous = nullptr;
    previous = qInstallMessageHandler(
        [](QtMsgType type, const QMessageLogContext &context, const QString &message) {
            if (type == QtFatalMsg)
                fprintf(stderr, "mutation: stopped at %s\n", qPrintable(where));
            previous(type, context, message);
        });
    // No worker runs here: each completion is delivered as the event a worker would post, in
    // an order the seed chooses, so a seed replays exactly.
    _observer = TaskObserver::instance();
    for (QWidget *widget : QApplication::topLevelWidgets())
        _dialog = _dialog ? _dialog : qobject_cast<TaskObserverDialog *>(widget);
    QVERIFY(_dialog);
    _taskGuard.reset(new ModelTesterGuard(_observer->model()));
}

void tst_Mutation::randomSteps()
{
    for (int seed = seedFrom; seed <= seedTo; ++seed) {
        build(unsigned(seed));
        for (int number = 1; number <= stepCount; ++number) {
            where = QStringLiteral("seed %1, step %2 (replay: --seed %1 --steps %2)")
                        .arg(seed)
                        .arg(number);
            if (_nodes.isEmpty())
                newNode();
            pick(_steps)();
            for (const Adapter &adapter : qAsConst(_adapters)) {
                const QString expected = adapter.expected(), actual = adapter.actual();
                if (expected != actual)
                    QFAIL(qPrintable(
                        QStringLiteral("%1: %2\n%3 differs\n  expected: %4\n  actual:   %5")
                            .arg(where, _what, adapter.name, expected, actual)));
            }
        }
        teardown();
    }
    qInfo("%d seeds of %d steps, every model compared after each step", seedTo - seedFrom + 1,
          stepCount);
}

void tst_Mutation::addModel(const QString &name, QAbstractItemModel *model, bool extras,
                            Accept accept, RowText text, More more)
{
    _models << model;
    where = QStringLiteral("the start of a seed, watching ") + name;
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 model);
    _adapters << Adapter {name, [=] { return dump(model, more); },
                          [=] {
                              QList<TreeNode *> top = _root->childNodes();
                              return expect(extras ? _treeModel->extraRootChildNodes() + top : top,
                                            accept, text);
                          }};
}

void tst_Mutation::build(unsigned seed)
{
    _random.seed(seed);
    _owner = new QObject;
    _module.reset(new Module(QStringLiteral("mutation"), nullptr, false));
    _root = new ElementRootTreeNode(_owner);
    _checked = _blocked = _added = _removed = {};
    for (int i = 0; i < 12; ++i)
        if (Node *node = newNode(); rnd(3))
            anyParent()->append(node);

    const auto all = [](Node *, const Path &) {
        return true;
    };
    const auto title = [](Node *node, const Path &) {
        return node->title();
    };
    const auto flagsPass = [](int filter) {
        return [filter](Node *node, const Path &) {
            return !((filter & 1) && (node->flags & 1)) && (!(filter & 2) || (node->flags & 2));
        };
    };
    // Accept columns name source columns; column 1 does not exist and so never matches.
    const auto matches = [](QSortFilterProxyModel *proxy, Node *node, const QSet<int> &columns) {
        const QRegExp regExp = proxy->filterRegExp();
        return regExp.isEmpty() || !regExp.isValid()
            || ((columns.isEmpty() || columns.contains(0)) && regExp.indexIn(node->title()) != -1);
    };
    _treeModel = new TreeNodeModel(_root);
    addModel("TreeNodeModel", _treeModel, true, all, title);

    auto *columnsProxy = new TreeNodeSortFilterProxyModel(rnd(4));
    columnsProxy->setSourceModel(_treeModel);
    addModel("TreeNodeSortFilterProxyModel", columnsProxy, true,
             flagsPass(columnsProxy->specialFlagsFilter()), title);

    auto *filterProxy = new FilterTreeNodeSortFilterProxyModel(rnd(4));
    filterProxy->setSourceModel(_treeModel);
    addModel(
        "FilterTreeNodeSortFilterProxyModel", filterProxy, true,
        [=, pass = flagsPass(filterProxy->specialFlagsFilter())](Node *node, const Path &path) {
            return pass(node, path) && matches(filterProxy, node, filterProxy->acceptColumns());
        },
        title);

    _choice = new ChoiceTreeNodeProxyModel(0, ChoiceRole, ChoiceRole + 1);
    _choice->setSourceModel(_treeModel);
    addModel(
        "ChoiceTreeNodeProxyModel", _choice, true, all,
        [this](Node *node, const Path &path) {
            return node->title() + (choiceValue(node, path) ? "+" : "")
                + (_blocked.contains(node->title()) ? "!" : "");
        },
        [this](const QModelIndex &index) {
            return QString(index.data(ChoiceRole).toBool() ? "+" : "")
                + (_choice->flags(index) ? "" : "!");
        });
    const auto sets = [](auto added, auto removed, auto checked) {
        return " added " + sorted(added) + " removed " + sorted(removed) + " checked "
            + sorted(checked);
    };
    _adapters.last().actual = [=, dump = _adapters.last().actual] {
        return dump() + sets(_choice->addNames(), _choice->removeNames(), _choice->checkedNames());
    };
    _adapters.last().expected = [=, oracle = _adapters.last().expected] {
        return oracle() + sets(_added, _removed, _checked);
    };

    auto *checkedProxy = new ChoiceTreeNodeSortFilterProxyModel(true);
    checkedProxy->setSourceModel(_choice);
    addModel(
        "ChoiceTreeNodeSortFilterProxyModel", checkedProxy, true,
        [this](Node *node, const Path &path) { return choiceValue(node, path); }, title);

    auto *uncheckedProxy = new ChoiceFilterTreeNodeSortFilterProxyModel(false);
    uncheckedProxy->setSourceModel(_choice);
    addModel(
        "ChoiceFilterTreeNodeSortFilterProxyModel", uncheckedProxy, true,
        [=, pass = flagsPass(1)](Node *node, const Path &path) {
            return pass(node, path) && !choiceValue(node, path)
                && matches(uncheckedProxy, node, {});
        },
        title);
    _choiceFilters = {checkedProxy, uncheckedProxy};

    _elementModel = new ElementModel(_root);
    addModel("ElementModel", _elementModel, false, all, title);

    auto *elementProxy = new ElementSortFilterProxyModel(rnd(4));
    elementProxy->setSourceModel(_elementModel);
    addModel("ElementSortFilterProxyModel", elementProxy, false,
             flagsPass(elementProxy->specialFlagsFilter()), title);

    auto *groupProxy = new GroupInvisibleElementSortFilterProxyModel;
    groupProxy->setSourceModel(_elementModel);
    addModel(
        "GroupInvisibleElementSortFilterProxyModel", groupProxy, false,
        [=, pass = flagsPass(1)](Node *node, const Path &path) {
            QString group = node->ownGroup();
            for (int i = path.size() - 1; i >= 0 && group == Undefined; --i)
                group = path.at(i)->ownGroup();
            const QString shown = groupProxy->groupElementType();
            return pass(node, path) && (shown == Undefined || group == shown);
        },
        title);

    auto *selectableProxy = new SelectableElementSortFilterProxyModel;
    selectableProxy->setSourceModel(_elementModel);
    addModel("SelectableElementSortFilterProxyModel", selectableProxy, false, flagsPass(2),
             [=](Node *node, const Path &) {
                 const int role = selectableProxy->selectionDisplayRole();
                 return role == Element::GroupElementTypeRole ? node->ownGroup() : node->title();
             });

    _adapters << Adapter {"TaskObserverModel", [this] { return dump(_observer->model(), noMore); },
                          [this] {
                              QStringList rows;
                              for (const TaskRow &row : qAsConst(_tasks))
                                  rows << row.title + '|' + StatusTexts.value(row.status) + '|'
                                          + row.message;
                              return rows.isEmpty() ? QString() : '[' + rows.join(' ') + ']';
                          }};

    const QList<QPair<int, std::function<void()>>> steps {
        {3,
         [this] { // insert detached or new nodes anywhere, sometimes out of range
             TreeNode *parent = anyParent();
             QList<TreeNode *> list;
             for (Node *node : qAsConst(_nodes))
                 if (!node->parentNode() && list.size() < 3 && rnd(2))
                     list << node;
             if (list.isEmpty() || _nodes.size() < 40)
                 list << newNode();
             const int pos = rnd(parent->childNodesCount() + 3) - 1;
             _what = QStringLiteral("insert %1 at %2 of %3")
                         .arg(list.size())
                         .arg(pos)
                         .arg(parent->id());
             parent->insert(pos, list);
         }},
        {2,
         [this] { // remove, sometimes past the end
             TreeNode *parent = anyParent();
             const int pos = rnd(parent->childNodesCount() + 1), count = rnd(4);
             _what = QStringLiteral("removeAt(%1, %2) of %3").arg(pos).arg(count).arg(parent->id());
             parent->removeAt(pos, count);
         }},
        {1,
         [this] {
             reload();
         }},
        {1,
         [this] { // new extra root nodes, or none
             QList<TreeNode *> extras;
             for (int i = rnd(3); i > 0; --i)
                 extras << newNode(false);
             _what = QStringLiteral("%1 extra root nodes").arg(extras.size());
             extras.isEmpty() && rnd(2) ? _treeModel->deleteExtraRootChildNodes()
                                        : _treeModel->setExtraRootChildNodes(extras);
         }},
        {2,
         [this] { // a title or flags change, told by the node or its parent
             Node *node = pick(_nodes);
             _what = QStringLiteral("data of %1").arg(node->id());
             rnd(2) ? void(node->flags = rnd(4)) : node->retitle(pick(Titles));
             rnd(3) || !node->parentNode() ? node->emitNodeDataChanged()
                                           : node->parentNode()->emitNodeChildsDataChanged();
         }},
        {1,
         [=] { // descendants inherit a group, so the filter is forced after a change
             Node *node = pick(_nodes);
             node->ownGroup() = pick(Groups);
             _what = QStringLiteral("group of %1 is %2").arg(node->id(), node->ownGroup());
             groupProxy->setGroupElementType(rnd(3) ? groupProxy->groupElementType() : pick(Groups),
                                             true);
         }},
        {1,
         [=] {
             _what = QStringLiteral("filters, columns, group and display role");
             (rnd(2) ? filterProxy : static_cast<QSortFilterProxyModel *>(uncheckedProxy))
                 ->setFilterRegExp(QRegExp(pick(Patterns)));
             (rnd(2) ? filterProxy : columnsProxy)
                 ->setAcceptColumns(pick(QList<QSet<int>> {{}, {0}, {0, 1}}));
             groupProxy->setGroupElementType(pick(Groups), false);
             selectableProxy->setSelectionDisplayRole(
                 pick(QList<int> {0, Element::TitleRole, Element::GroupElementTypeRole}));
         }},
        {1,
         [this] { // an element is deleted; its children stay, detached
             Node *node = _nodes.takeAt(rnd(_nodes.size()));
             _what = QStringLiteral("delete %1").arg(node->id());
             delete node;
         }},
        {2,
         [this] {
             _what = QStringLiteral("set checked, blocked or both");
             const QSet<QString> checked = rnd(3) ? _checked : pickNames();
             const QSet<QString> blocked = rnd(2) ? _blocked : pickNames();
             if (checked != _checked || blocked != _blocked) {
                 _choice->setCheckedBlockedNames(checked, blocked);
                 _choice->clearAddRemoveNames();
             } else {
                 _choice->setCheckedNames(checked);
             }
             if (checked != _checked || blocked != _blocked)
                 _added = _removed = {};
             _checked = checked, _blocked = blocked;
         }},
        {3,
         [this] {
             tick();
         }},
        {2,
         [this] { // perform a new task, or one already performed again
             if (!_tasks.isEmpty() && _tasks.last().pending && !rnd(4))
                 return _observer->performTask(_tasks.last().task);
             const int id = _nextTask++;
             const bool stoppable = rnd(2);
             auto *task
                 = new Task(&_ledger, id % 1024, QStringLiteral("t%1").arg(id), pick(Outcomes),
                            QStringLiteral("m%1").arg(id), nullptr, stoppable);
             _what = QStringLiteral("perform t%1").arg(id);
             ++_running;
             _tasks << TaskRow {task,     task->taskDescription().description(), {}, 0, true,
                                stoppable};
             _observer->performTask(task);
         }},
        {1,
         [this] { // the user asks a row to stop
             const int row = rnd(_tasks.size() + 1) - 1;
             if (row < 0)
                 return;
             TaskRow &entry = _tasks[row];
             _what = QStringLiteral("stop row %1").arg(row);
             const bool stops = entry.pending && entry.status == 0 && entry.stoppable;
             QCOMPARE(_observer->model()->setData(_observer->model()->index(row, 1), 4), stops);
             entry.status = stops ? TaskDescription::AboutToBeStopped : entry.status;
         }},
        {1,
         [this] { // the user closes the dialog that stayed open after problems
             if (_running || _tasks.isEmpty() || !_dialog->isVisible())
                 return;
             _what = QStringLiteral("close the dialog");
             _dialog->reject();
             _tasks.clear();
             _problems = 0;
         }},
        {2,
         [this] {
             const int row = rnd(_tasks.size() + 1) - 1;
             if (row >= 0 && _tasks.at(row).pending)
                 complete(_tasks.at(row).task);
         }},
    };
    _steps.clear();
    for (const auto &step : steps)
        for (int i = 0; i < step.first; ++i)
            _steps << step.second;
}

void tst_Mutation::reload()
{
    // A random forest of ids; some nodes name a missing parent or skip a level, and so stay out.
    const bool paired = rnd(2);
    _what = QStringLiteral("reload, %1 reset pair").arg(paired ? "in a" : "without");
    if (paired) {
        _treeModel->nodesAboutToBeReset();
        _elementModel->nodesAboutToBeReset();
    }
    for (Node *node : qAsConst(_nodes))
        if (node->parentNode())
            node->parentNode()->removeOne(node);
    QList<TreeNode *> list;
    for (Node *node : qAsConst(_nodes)) {
        if (!rnd(5))
            continue;
        auto *parent = list.isEmpty() || !rnd(3) ? nullptr : static_cast<Node *>(pick(list));
        const int depth = (parent ? parent->expectedDepth() + 1 : 1) + !rnd(10);
        node->place(depth, !parent ? QString() : rnd(12) ? parent->id() : "i?");
        list << node;
    }
    _root->loadTreeFromList(list);
    if (paired) {
        _treeModel->nodesReset();
        _elementModel->nodesReset();
    }
}

void tst_Mutation::tick() // the user ticks or unticks a row
{
    QModelIndex index;
    for (int depth = 0; depth < 4 && _choice->rowCount(index); ++depth)
        index = _choice->index(rnd(_choice->rowCount(index)), 0, index);
    if (!index.isValid())
        return;
    const QString name = index.data().toString();
    const bool before = index.data(ChoiceRole).toBool(), tick = rnd(4) ? !before : before;
    _what = QStringLiteral("tick %1 as %2").arg(name).arg(tick);
    const bool changes = !_blocked.contains(name) && tick != before;
    QCOMPARE(_choice->setData(index, tick, ChoiceRole), changes);
    if (changes && tick && !_removed.remove(name))
        _added.insert(name);
    if (changes && !tick && !_added.remove(name))
        _removed.insert(name);
    if (changes)
        tick ? void(_checked.insert(name)) : void(_checked.remove(name));
    // Other rows of the name are not announced (sameNameIsNotAnnounced): their owner has to ask
    // the filters again.
    int rows = 0;
    for (TreeNode *node : _treeModel->extraRootChildNodes() + _root->allChildNodes())
        rows += static_cast<Node *>(node)->title() == name;
    for (QSortFilterProxyModel *proxy : qAsConst(_choiceFilters))
        if (rows > 1)
            proxy->invalidate();
}

void tst_Mutation::complete(Task *task)
{
    auto row = std::find_if(_tasks.begin(), _tasks.end(),
                            [=](const TaskRow &r) { return r.task == task; });
    _what = QStringLiteral("%1 completes").arg(row->title);
    task->run();
    *row
        = {nullptr, row->title, task->taskDescription().message(), task->taskDescription().status(),
           false,   false};
    --_running;
    _problems += row->status != TaskDescription::Success;
    if (_running == 0 && _problems == 0)
        _tasks.clear();
    TaskPerformedEvent event(task);
    QCoreApplication::sendEvent(_observer, &event);
}

void tst_Mutation::teardown()
{
    where = QStringLiteral("the end of a seed");
    for (const TaskRow &row : QList<TaskRow>(_tasks))
        if (row.pending)
            complete(row.task);
    _dialog->reject();
    _tasks.clear();
    _problems = 0;
    while (!_models.isEmpty())
        delete _models.takeLast();
    _adapters.clear();
    delete _owner;
    _nodes.clear();
    _module.reset();
}

/*
 * Ticking a row ticks its name, and with it every row of that name, but dataChanged() names the
 * ticked row alone: the filters over the choice model keep their old answer for the others.
 */
void tst_Mutation::sameNameIsNotAnnounced()
{
    build(1);
    where = QStringLiteral("sameNameIsNotAnnounced");
    Node *first = newNode(), *second = newNode();
    first->retitle("ab");
    second->retitle("ab");
    _root->clear();
    _root->append({first, second});
    _choice->setCheckedNames({});
    QCOMPARE(_choiceFilters.at(0)->rowCount(), 0);
    QVERIFY(_choice->setData(_choice->index(0, 0), true, ChoiceRole));
    QCOMPARE(_choice->index(1, 0).data(ChoiceRole).toBool(), true);
    QEXPECT_FAIL("", "the second row of the ticked name is not announced", Continue);
    QCOMPARE(_choiceFilters.at(0)->rowCount(), 2);
    teardown();
}

int main(int argc, char *argv[])
{
    QApplication app(argc, argv);
    QStringList args = app.arguments();
    for (const char *option : {"--seed", "--seeds", "--steps"}) {
        const int at = args.indexOf(QLatin1String(option)), value = args.value(at + 1).toInt();
        if (at > 0 && !qstrcmp(option, "--steps"))
            stepCount = value;
        else if (at > 0)
            seedFrom = qstrcmp(option, "--seed") ? 1 : value, seedTo = value;
        if (at > 0)
            args.erase(args.begin() + at, args.begin() + qMin(at + 2, args.size()));
    }
    tst_Mutation test;
    return QTest::qExec(&test, args);
}

#include "tst_mutation.moc"
