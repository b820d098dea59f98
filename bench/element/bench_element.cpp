// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Gathers the elements of modules holding 100,000 elements in total into an ElementContainer,
// then filters them through the group proxy and the text filter proxy as views would, beside
// QSortFilterProxyModel over a QStandardItemModel of the same shape. Run by hand:
// bench_element [elements] [repetitions] (default 100000 3).

#include "../benchphase.h"
#include "element/elementcontainer.h"
#include "element/elementmodel.h"
#include "element/groupinvisibleelementsortfilterproxymodel.h"
#include "element/ordinaryelement.h"
#include "plugin/module.h"
#include "plugin/moduleroottreenode.h"
#include "treenode/filtertreenodesortfilterproxymodel.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QRegExp>
#include <QSortFilterProxyModel>
#include <QStandardItemModel>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <functional>
#include <memory>
#include <vector>

namespace {

constexpr int modules = 10;
constexpr int GroupRole = Qt::UserRole + 6;

class BenchModule : public Module
{
public:
    BenchModule(const QString &name, QObject *parent)
        : Module(name, parent, false)
    {
        _expectedDepth = 1;
    }
    void performOperation(ContextOperation *, OperationType type, ElementData *, int) override
    {
        if (type == ReadLightOperation)
            ++readLight;
    }
    int readLight = 0;
};

class BenchElement : public OrdinaryElement
{
public:
    BenchElement(Module &module, const QString &title, int depth, const QString &parentId,
                 const QString &group)
        : OrdinaryElement(module, &Module::defaultTrue)
    {
        _elementType = QStringLiteral("item");
        _title = title;
        _id = title;
        _expectedDepth = depth;
        _expectedParentId = parentId;
        if (!group.isEmpty())
            _groupElementType = group;
    }
    QString caption() const override { return _title; }
    OperationType availableOperations() const override
    {
        return _expectedDepth == 1 ? ReadLightOperation | ReadOperation : ReadOperation;
    }
    void performOperation(OperationType type, ElementData *data, int alternative) override
    {
        module().performOperation(this, type, data, alternative);
    }
};

// Per module: one top-level element (its own group), mids below it, leaves below the mids;
// the element lists are in reverse order so that loading has to sort them.
struct Shape
{
    int mids;
    int leaves; // per mid
};

Shape shapeFor(int elements)
{
    const int perModule = std::max(3, elements / modules);
    // 10,000 per module gives 99 mids of 100 leaves: 100,000 elements in all.
    const int mids = std::max(1, int(std::sqrt(double(perModule))) - 1);
    return {mids, std::max(1, (perModule - 1 - mids) / mids)};
}

QString name(int m, int i = -1, int j = -1)
{
    QString text = QStringLiteral("m%1").arg(m);
    if (i >= 0)
        text += QStringLiteral("_%1").arg(i);
    if (j >= 0)
        text += QStringLiteral("_%1").arg(j);
    return text;
}

int buildModules(ModuleRootTreeNode &root, QObject &owner, const Shape &shape)
{
    int total = 0;
    QList<TreeNode *> moduleNodes;
    for (int m = 0; m < modules; ++m) {
        auto *module = new BenchModule(name(m), &owner);
        QList<TreeNode *> &nodes = module->elementNodes();
        const QString group = QStringLiteral("g%1").arg(m);
        nodes << new BenchElement(*module, name(m), 1, QString(), group);
        for (int i = 0; i < shape.mids; ++i) {
            nodes << new BenchElement(*module, name(m, i), 2, name(m), QString());
            for (int j = 0; j < shape.leaves; ++j)
                nodes << new BenchElement(*module, name(m, i, j), 3, name(m, i), QString());
        }
        std::reverse(nodes.begin(), nodes.end());
        total += nodes.size();
        moduleNodes << module;
    }
    root.append(moduleNodes);
    return total;
}

void buildStandard(QStandardItemModel &model, const Shape &shape)
{
    QStandardItem *root = model.invisibleRootItem();
    for (int m = 0; m < modules; ++m) {
        auto *top = new QStandardItem(name(m));
        top->setData(QStringLiteral("g%1").arg(m), GroupRole);
        for (int i = 0; i < shape.mids; ++i) {
            auto *mid = new QStandardItem(name(m, i));
            mid->setData(QStringLiteral("g%1").arg(m), GroupRole);
            QList<QStandardItem *> leaves;
            for (int j = 0; j < shape.leaves; ++j) {
                auto *leaf = new QStandardItem(name(m, i, j));
                leaf->setData(QStringLiteral("g%1").arg(m), GroupRole);
                leaves << leaf;
            }
            mid->appendRows(leaves);
            top->appendRow(mid);
        }
        root->appendRow(top);
    }
}

// Everything a view that expands all would ask: every row, its display text.
int walk(const QAbstractItemModel &model, const QModelIndex &parent = QModelIndex())
{
    int rows = model.rowCount(parent);
    int seen = rows;
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        model.data(index);
        seen += walk(model, index);
    }
    return seen;
}

// The stretch is named for callgrind (see benchphase.h).
double bestOf(const char *stretch, int repetitions, const std::function<void()> &prepare,
              const std::function<void()> &measured)
{
    double best = 1e30;
    for (int r = 0; r < repetitions; ++r) {
        prepare();
        QElapsedTimer timer;
        OVT_BENCH_PHASE_BEGIN();
        timer.start();
        measured();
        best = std::min(best, timer.nsecsElapsed() / 1e6);
        OVT_BENCH_PHASE_END(stretch);
    }
    return best;
}

void report(const char *what, double ours, double standard, int rows)
{
    std::printf("%-44s %10.1f ms %10.1f ms %8.2fx   (%d rows shown)\n", what, ours, standard,
                standard > 0 ? ours / standard : 0.0, rows);
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // element icons need a GUI application, no screen
    QApplication app(argc, argv);
    QCoreApplication::setOrganizationName(QStringLiteral("ovt-bench"));
    QCoreApplication::setApplicationName(QStringLiteral("bench_element"));
    const int elements = argc > 1 ? std::atoi(argv[1]) : 100000;
    const int repetitions = argc > 2 ? std::atoi(argv[2]) : 3;
    const Shape shape = shapeFor(elements);

    QObject owner;
    ModuleRootTreeNode pluginRoot;
    const int total = buildModules(pluginRoot, owner, shape);
    std::printf("%d elements in %d modules (%d mids of %d leaves each), best of %d\n\n", total,
                modules, shape.mids, shape.leaves, repetitions);

    ElementContainer container;
    ElementModel *model = static_cast<ElementModel *>(container.treeNodeModel());
    QStandardItemModel standard;

    // Loading: the first reset builds the tree; a later one rebuilds it from the same modules.
    QElapsedTimer timer;
    OVT_BENCH_PHASE_BEGIN();
    timer.start();
    container.pluginContainerReset(&pluginRoot);
    const double firstReset = timer.nsecsElapsed() / 1e6;
    OVT_BENCH_PHASE_END("reset (first) | qt: build");
    const double rebuild = bestOf(
        "reset (rebuild) | qt: build", repetitions, [] {},
        [&] { container.pluginContainerReset(&pluginRoot); });
    const double standardBuild = bestOf(
        "qt: build", repetitions, [&] { standard.clear(); },
        [&] { buildStandard(standard, shape); });
    std::printf("%-44s %10s    %10s    %8s\n", "", "ovt-common", "Qt", "ratio");
    report("pluginContainerReset (first) / build", firstReset, standardBuild, total);
    report("pluginContainerReset (rebuild) / build", rebuild, standardBuild, total);

    int walked = 0;
    const double modelWalk = bestOf(
        "walk | qt: walk", repetitions, [] {}, [&] { walked = walk(*model); });
    const double standardWalk = bestOf(
        "qt: walk", repetitions, [] {}, [&] { walk(standard); });
    report("walk the whole model", modelWalk, standardWalk, walked);

    // Proxies: attach, then set the group or the expression, then walk what is shown.
    GroupInvisibleElementSortFilterProxyModel group;
    group.setSourceModel(model);
    QSortFilterProxyModel standardGroup;
    standardGroup.setFilterRole(GroupRole);
    standardGroup.setSourceModel(&standard);
    int shown = 0;
    const double groupSet = bestOf(
        "group set | qt: group set", repetitions,
        [&] {
            group.setGroupElementType(QStringLiteral("Undefined"));
            walk(group);
        },
        [&] {
            group.setGroupElementType(QStringLiteral("g3"));
            shown = walk(group);
        });
    const double standardGroupSet = bestOf(
        "qt: group set", repetitions,
        [&] {
            standardGroup.setFilterFixedString(QString());
            walk(standardGroup);
        },
        [&] {
            standardGroup.setFilterFixedString(QStringLiteral("g3"));
            walk(standardGroup);
        });
    report("group proxy: set a group, walk", groupSet, standardGroupSet, shown);

    const double groupAll = bestOf(
        "group all | qt: group all", repetitions,
        [&] {
            group.setGroupElementType(QStringLiteral("g3"));
            walk(group);
        },
        [&] {
            group.setGroupElementType(QStringLiteral("Undefined"));
            shown = walk(group);
        });
    const double standardGroupAll = bestOf(
        "qt: group all", repetitions,
        [&] {
            standardGroup.setFilterFixedString(QStringLiteral("g3"));
            walk(standardGroup);
        },
        [&] {
            standardGroup.setFilterFixedString(QString());
            walk(standardGroup);
        });
    report("group proxy: back to every group, walk", groupAll, standardGroupAll, shown);

    FilterTreeNodeSortFilterProxyModel filter(0x1);
    filter.setSourceModel(model);
    QSortFilterProxyModel standardFilter;
    standardFilter.setSourceModel(&standard);
    const QRegExp expression(QStringLiteral("7"));
    const double filterSet = bestOf(
        "filter set | qt: filter set", repetitions,
        [&] {
            filter.setFilterRegExp(QRegExp());
            walk(filter);
        },
        [&] {
            filter.setFilterRegExp(expression);
            shown = walk(filter);
        });
    const double standardFilterSet = bestOf(
        "qt: filter set", repetitions,
        [&] {
            standardFilter.setFilterRegExp(QRegExp());
            walk(standardFilter);
        },
        [&] {
            standardFilter.setFilterRegExp(expression);
            walk(standardFilter);
        });
    report("filter proxy: set a regexp, walk", filterSet, standardFilterSet, shown);

    const double filterClear = bestOf(
        "filter clear | qt: filter clear", repetitions,
        [&] {
            filter.setFilterRegExp(expression);
            walk(filter);
        },
        [&] {
            filter.setFilterRegExp(QRegExp());
            shown = walk(filter);
        });
    const double standardFilterClear = bestOf(
        "qt: filter clear", repetitions,
        [&] {
            standardFilter.setFilterRegExp(expression);
            walk(standardFilter);
        },
        [&] {
            standardFilter.setFilterRegExp(QRegExp());
            walk(standardFilter);
        });
    report("filter proxy: clear the regexp, walk", filterClear, standardFilterClear, shown);

    int readLight = 0;
    for (QObject *child : owner.children())
        readLight += static_cast<BenchModule *>(child)->readLight;
    std::printf("\nread-light operations sent: %d (%d resets of %d top-level elements)\n",
                readLight, 1 + repetitions, modules);
    return 0;
}
