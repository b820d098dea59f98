// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"

#include <QModelIndex>
#include <QTest>

#include <array>

class QAbstractItemModel;

namespace OvtTest {

/** A node whose id is its name; column c shows texts[c]; a root gives its model the columns. */
class TestNode : public TreeNode
{
public:
    TestNode(const QString &name, QObject *owner, int expectedDepth = -1,
             const QString &expectedParentId = {});

    /** Ids of the nodes in the order they received afterLoad(), across all test nodes. */
    static inline QStringList afterLoadLog;

    void afterLoad() override { ++afterLoads, afterLoadLog.append(id()); }
    int treeNodeSpecialFlags() const override { return flags; }
    int columnCount() const override { return columns; }
    QVariant data(int column, int role) const override;

    QStringList texts;
    int flags = 0;
    int columns = 1;
    int afterLoads = 0;
};

/** The detached top-level nodes of "a[a1 a2] b" (children in brackets; "a|x|y" gives columns 1
 * and 2 the texts x and y; "a#3" gives special flags 3), owned by @p owner. */
QList<TreeNode *> buildNodes(const QString &notation, QObject *owner);
/** A root with id "root" over the tree "[...]". */
TestNode *buildTree(const QString &notation, QObject *owner, int columns = 1);
/** The tree below @p root, names only: "[a[a1 a2] b]". */
QString treeToString(const TreeNode *root);
/** The rows of @p model in column 0, named by display text (or id when there is none). */
QString modelToString(const QAbstractItemModel *model, const QModelIndex &parent = QModelIndex());
/** How a row appears in the notation: "root" for the invalid index. */
QString indexName(const QModelIndex &index);
/** The node with @p id in the tree of @p root, or @p root for "root". */
TreeNode *findNode(TreeNode *root, const QString &id);
/** Watches @p model with a fatal QAbstractItemModelTester. */
void watch(QAbstractItemModel *model);

/** "depth:expectedParentId:id" items separated by blanks, as nodes for loadTreeFromList(). */
QList<TreeNode *> listNodes(const QString &items, QObject *owner);

/** Declares the table of row(): one string of fields separated by ';'. */
void table();
void row(const char *name, const QString &fields);
/** The current row's first N fields, blanks around them trimmed. */
template<int N> std::array<QString, N> fields()
{
    QFETCH(QString, fields);
    const QStringList list = fields.split(QLatin1Char(';'));
    std::array<QString, N> result;
    for (int i = 0; i < N; ++i)
        result[i] = list.value(i).trimmed();
    return result;
}
/** The blank-separated words of @p text. */
QStringList words(const QString &text);

} // namespace OvtTest
