// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// Builds node trees of growing size with loadTreeFromList() and a TreeNodeModel over them,
// walks the model as a view would, and sets the figures beside QStandardItemModel building and
// walking the same shape. Run by hand: bench_treenode [sizes...] (default 10000 100000 1000000).

#include "../benchphase.h"
#include "treenode/treenode.h"
#include "treenode/treenodemodel.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QStandardItemModel>

#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr int IdRole = Qt::UserRole + 2;

// The base node has no columns; a model needs one to show anything.
class RootNode : public TreeNode
{
public:
    RootNode()
        : TreeNode(0, QString())
    { }
    int columnCount() const override { return 1; }
};

QString idOf(int i)
{
    return QStringLiteral("n%1").arg(i, 7, 10, QLatin1Char('0'));
}

// One node in a hundred at depth 1, the rest spread evenly below them at depth 2. The list is
// shuffled so that loading has to sort it.
QList<TreeNode *> makeNodes(int count)
{
    const int top = std::max(1, count / 100);
    QList<TreeNode *> nodes;
    nodes.reserve(count);
    for (int i = 0; i < top; ++i) {
        auto *node = new TreeNode(1, QString());
        node->setId(idOf(i));
        nodes.append(node);
    }
    for (int i = top; i < count; ++i) {
        auto *node = new TreeNode(2, idOf(i % top));
        node->setId(idOf(i));
        nodes.append(node);
    }
    std::mt19937 random(42);
    std::shuffle(nodes.begin(), nodes.end(), random);
    return nodes;
}

qint64 walk(const QAbstractItemModel &model, const QModelIndex &parent, int role)
{
    qint64 visited = 0;
    const int rows = model.rowCount(parent);
    for (int row = 0; row < rows; ++row) {
        const QModelIndex index = model.index(row, 0, parent);
        if (!index.isValid() || model.data(index, role).toString().isEmpty()
            || model.parent(index) != parent) {
            std::fprintf(stderr, "inconsistent model\n");
            return visited;
        }
        visited += 1 + walk(model, index, role);
    }
    return visited;
}

double ms(const QElapsedTimer &timer)
{
    return timer.nsecsElapsed() / 1e6;
}

void run(int count)
{
    QElapsedTimer timer;

    timer.start();
    QList<TreeNode *> nodes = makeNodes(count);
    const double create = ms(timer);

    timer.start();
    QList<TreeNode *> sorted = nodes;
    std::sort(sorted.begin(), sorted.end(), [](const TreeNode *a, const TreeNode *b) {
        if (a->expectedDepth() != b->expectedDepth())
            return a->expectedDepth() < b->expectedDepth();
        return a->id() < b->id();
    });
    const double sort = ms(timer);

    // Stretch names for callgrind (benchphase.h): "<what> | <reference>" is set against the
    // reference.
    const QByteArray size = QByteArray::number(count);
    const QByteArray loadName = size + " load";
    const QByteArray standardName = size + " qt: build";
    const QByteArray loadRatioName = loadName + " | " + standardName;
    const QByteArray teardownName = size + " teardown | " + loadRatioName;

    RootNode root;
    OVT_BENCH_PHASE_BEGIN();
    timer.start();
    root.loadTreeFromList(nodes);
    const double load = ms(timer);
    OVT_BENCH_PHASE_END(loadRatioName.constData());

    timer.start();
    TreeNodeModel model(&root);
    const double modelCreate = ms(timer);

    timer.start();
    const qint64 visited = walk(model, QModelIndex(), IdRole);
    const double traverse = ms(timer);
    if (visited != count)
        std::fprintf(stderr, "visited %lld of %d nodes\n", visited, count);

    // The same shape as standard items, appended parent by parent in sorted order.
    OVT_BENCH_PHASE_BEGIN();
    timer.start();
    QStandardItemModel standard;
    {
        const int top = std::max(1, count / 100);
        std::vector<QStandardItem *> parents(top);
        QStandardItem *invisibleRoot = standard.invisibleRootItem();
        for (int i = 0; i < top; ++i) {
            parents[i] = new QStandardItem(idOf(i));
            invisibleRoot->appendRow(parents[i]);
        }
        for (int i = top; i < count; ++i)
            parents[i % top]->appendRow(new QStandardItem(idOf(i)));
    }
    const double standardBuild = ms(timer);
    OVT_BENCH_PHASE_END(standardName.constData());

    timer.start();
    const qint64 standardVisited = walk(standard, QModelIndex(), Qt::DisplayRole);
    const double standardTraverse = ms(timer);
    if (standardVisited != count)
        std::fprintf(stderr, "standard: visited %lld of %d nodes\n", standardVisited, count);

    const double build = load + modelCreate;
    std::printf("%8d nodes | create %9.1f ms | sort %8.1f ms | load %9.1f ms (%.1fx sort) | "
                "model %6.2f ms | walk %8.1f ms || QStandardItemModel build %9.1f ms, walk "
                "%8.1f ms || ratio build %.2f, walk %.2f\n",
                count, create, sort, load, load / sort, modelCreate, traverse, standardBuild,
                standardTraverse, build / standardBuild, traverse / standardTraverse);
    std::fflush(stdout);

    OVT_BENCH_PHASE_BEGIN();
    timer.start();
    root.clear();
    qDeleteAll(nodes);
    const double teardown = ms(timer);
    OVT_BENCH_PHASE_END(teardownName.constData());
    std::printf("%8s       | teardown (clear and delete) %.1f ms || ratio teardown / load %.2f, "
                "load / QStandardItemModel build %.2f\n",
                "", teardown, teardown / load, load / standardBuild);
}

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QList<int> sizes;
    for (int i = 1; i < argc; ++i)
        sizes.append(QString::fromLocal8Bit(argv[i]).toInt());
    if (sizes.isEmpty())
        sizes = {10000, 100000, 1000000};
    std::printf("times in ms; ratio = TreeNode tree and model / QStandardItemModel\n");
    for (int size : qAsConst(sizes))
        run(size);
    return 0;
}
