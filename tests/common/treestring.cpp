// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "treestring.h"

#include <QAbstractItemModelTester>
#include <QRegularExpression>

namespace OvtTest {

TestNode::TestNode(const QString &name, QObject *owner, int expectedDepth,
                   const QString &expectedParentId)
    : TreeNode(expectedDepth, expectedParentId, owner)
    , texts {name}
{
    setId(name);
}

QVariant TestNode::data(int column, int role) const
{
    if (role == Qt::DisplayRole || role == Qt::ToolTipRole)
        return column >= 0 && column < texts.size() ? QVariant(texts.at(column)) : QVariant();
    return TreeNode::data(column, role);
}

QList<TreeNode *> buildNodes(const QString &notation, QObject *owner)
{
    QList<QList<TreeNode *>> levels {{}};
    auto tokens = QRegularExpression(QStringLiteral("[^\\s\\[\\]]+|\\S")).globalMatch(notation);
    while (tokens.hasNext()) {
        const QString token = tokens.next().captured();
        if (token == QLatin1String("[")) {
            levels.append(QList<TreeNode *>());
        } else if (token == QLatin1String("]")) {
            const QList<TreeNode *> children = levels.takeLast();
            levels.last().last()->append(children);
        } else {
            const QStringList texts = token.section(QLatin1Char('#'), 0, 0).split('|');
            auto *node = new TestNode(texts.first(), owner);
            node->texts = texts;
            node->flags = token.section(QLatin1Char('#'), 1).toInt();
            levels.last().append(node);
        }
    }
    return levels.first();
}

TestNode *buildTree(const QString &notation, QObject *owner, int columns)
{
    auto *root = static_cast<TestNode *>(buildNodes("root" + notation, owner).first());
    root->columns = columns;
    return root;
}

QString treeToString(const TreeNode *root)
{
    QStringList parts;
    for (const TreeNode *child : root->childNodes())
        parts.append(child->id() + (child->childNodesCount() ? treeToString(child) : QString()));
    return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
}

QString indexName(const QModelIndex &index)
{
    if (!index.isValid())
        return QStringLiteral("root");
    const QModelIndex first = index.sibling(index.row(), 0);
    const QVariant display = first.data(Qt::DisplayRole);
    return display.isValid() ? display.toString() : first.data(Qt::UserRole + 2).toString();
}

QString modelToString(const QAbstractItemModel *model, const QModelIndex &parent)
{
    QStringList parts;
    for (int row = 0; row < model->rowCount(parent); ++row) {
        const QModelIndex index = model->index(row, 0, parent);
        parts.append(indexName(index)
                     + (model->rowCount(index) ? modelToString(model, index) : QString()));
    }
    return QLatin1Char('[') + parts.join(QLatin1Char(' ')) + QLatin1Char(']');
}

TreeNode *findNode(TreeNode *root, const QString &id)
{
    for (TreeNode *node : QList<TreeNode *> {root} + root->allChildNodes()) {
        if (node->id() == id)
            return node;
    }
    return nullptr;
}

void watch(QAbstractItemModel *model)
{
    new QAbstractItemModelTester(model, QAbstractItemModelTester::FailureReportingMode::Fatal,
                                 model);
}

QList<TreeNode *> listNodes(const QString &items, QObject *owner)
{
    QList<TreeNode *> nodes;
    for (const QString &item : words(items)) {
        const QStringList p = item.split(QLatin1Char(':'));
        nodes.append(new TestNode(p.at(2), owner, p.at(0).toInt(), p.at(1)));
    }
    return nodes;
}

void table()
{
    QTest::addColumn<QString>("fields");
}

void row(const char *name, const QString &fields)
{
    QTest::newRow(name) << fields;
}

QStringList words(const QString &text)
{
    return text.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

} // namespace OvtTest
