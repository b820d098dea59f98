// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

// loadTreeFromList against a naive reference. Each three input bytes make one node: its depth
// (1 to 4 below a root at 0), its id and its expected parent id, from a small alphabet with
// case, non-ASCII and surrogate pairs, so that ids collide and their ordering matters. A node
// repeating the depth and id of an earlier one is dropped: between such twins the order is left
// open, so no reference could tell which one gets the children.

#include "treenode/treenode.h"

#include <QSet>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace {

QStringList &afterLoads()
{
    static QStringList log;
    return log;
}

class Node : public TreeNode
{
public:
    Node(int depth, const QString &parentId, const QString &id)
        : TreeNode(depth, parentId)
    {
        setId(id);
    }
    void afterLoad() override { afterLoads() << id(); }
};

const QStringList Ids {"",
                       "a",
                       "b",
                       "B",
                       "ab",
                       "a b",
                       QStringLiteral("\u00e9"),
                       QStringLiteral("\U0001F600"),
                       QStringLiteral("\uFFFD"),
                       "aa"};

QString describe(const TreeNode *node)
{
    QString text = node->id().isEmpty() ? QStringLiteral("''") : node->id();
    if (!node->childNodes().isEmpty()) {
        QStringList children;
        for (const TreeNode *child : node->childNodes())
            children << describe(child);
        text += '[' + children.join(' ') + ']';
    }
    return text;
}

[[noreturn]] void fail(const char *what, const QString &expected, const QString &actual)
{
    fprintf(stderr, "loadTreeFromList: %s differ\n  expected: %s\n  actual:   %s\n", what,
            qPrintable(expected), qPrintable(actual));
    abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    std::vector<std::unique_ptr<Node>> owned;
    QList<TreeNode *> input;
    QSet<QPair<int, QString>> seen;
    for (size_t i = 0; i + 2 < size; i += 3) {
        const int depth = 1 + data[i] % 4;
        const QString id = Ids.at(data[i + 1] % Ids.size());
        if (seen.contains({depth, id}))
            continue;
        seen.insert({depth, id});
        owned.emplace_back(new Node(depth, Ids.at(data[i + 2] % Ids.size()), id));
        input << owned.back().get();
    }

    // The reference: visit by (depth, id); a node hangs under the node in the tree one level
    // up whose id is its expected parent id, the root (id "") standing at level 0.
    QList<TreeNode *> order = input;
    std::stable_sort(order.begin(), order.end(), [](TreeNode *a, TreeNode *b) {
        return a->expectedDepth() != b->expectedDepth() ? a->expectedDepth() < b->expectedDepth()
                                                        : a->id() < b->id();
    });
    TreeNode root(0, QString());
    QHash<TreeNode *, TreeNode *> parentOf;
    QHash<TreeNode *, QList<TreeNode *>> children;
    QStringList expectedAfterLoads;
    for (TreeNode *node : qAsConst(order)) {
        TreeNode *parent = nullptr;
        if (node->expectedDepth() == 1 && node->expectedParentId() == root.id())
            parent = &root;
        for (TreeNode *candidate : qAsConst(order))
            if (!parent && parentOf.contains(candidate)
                && candidate->expectedDepth() == node->expectedDepth() - 1
                && candidate->id() == node->expectedParentId())
                parent = candidate;
        if (parent) {
            parentOf.insert(node, parent);
            children[parent] << node;
            expectedAfterLoads << node->id();
        }
    }
    std::function<QString(TreeNode *)> expected = [&](TreeNode *node) {
        QString text = node->id().isEmpty() ? QStringLiteral("''") : node->id();
        QStringList list;
        for (TreeNode *child : children.value(node))
            list << expected(child);
        return list.isEmpty() ? text : text + '[' + list.join(' ') + ']';
    };

    // A stale child of the root goes first: loading starts from an empty root.
    Node stale(1, QString(), QStringLiteral("stale"));
    root.append(&stale);
    afterLoads().clear();
    root.loadTreeFromList(input);
    if (describe(&root) != expected(&root))
        fail("trees", expected(&root), describe(&root));
    if (afterLoads() != expectedAfterLoads)
        fail("afterLoad() calls", expectedAfterLoads.join(' '), afterLoads().join(' '));
    for (TreeNode *node : qAsConst(input))
        if (node->parentNode() != parentOf.value(node))
            fail("parents", describe(parentOf.value(node) ? parentOf.value(node) : &root),
                 node->id());
    if (stale.parentNode())
        fail("stale child", QString(), stale.id());
    root.clear(); // the nodes go before the root, which must not reach them then
    return 0;
}
