// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenode.h"
#include "treestring.h"

#include <QAbstractItemModel>

namespace OvtTest {

/** Records signals of a model ("removed(root,2,4)", "dataChanged(a,0,b,1)", "reset"; rows named
 * as in modelToString()) or of a node's tree ("aboutToBeInserted(a,0,1)", "inserted",
 * "childsDataChanged(a)", "setCurrent(a)", "expand(a)") as strings, in order. */
class SignalRecorder : public QObject
{
public:
    explicit SignalRecorder(QAbstractItemModel *model, QObject *parent = nullptr)
        : QObject(parent)
    {
        using M = QAbstractItemModel;
        auto rows = [this](const char *name) {
            return [=](const QModelIndex &at, int first, int last) {
                add(name, indexName(at), first, last);
            };
        };
        connect(model, &M::rowsAboutToBeInserted, this, rows("aboutToBeInserted"));
        connect(model, &M::rowsInserted, this, rows("inserted"));
        connect(model, &M::rowsAboutToBeRemoved, this, rows("aboutToBeRemoved"));
        connect(model, &M::rowsRemoved, this, rows("removed"));
        connect(model, &M::dataChanged, this, [this](const QModelIndex &a, const QModelIndex &b) {
            add("dataChanged", indexName(a), a.column(), indexName(b), b.column());
        });
        connect(model, &M::modelAboutToBeReset, this, [this] { add("aboutToBeReset"); });
        connect(model, &M::modelReset, this, [this] { add("reset"); });
    }

    explicit SignalRecorder(TreeNode *node, QObject *parent = nullptr)
        : QObject(parent)
    {
        auto rows = [this](const char *name) {
            return [=](TreeNode *at, int first, int last) {
                add(name, nameOf(at), first, last);
            };
        };
        auto one = [this](const char *name) {
            return [=](TreeNode *at) {
                add(name, nameOf(at));
            };
        };
        connect(node, &TreeNode::nodesAboutToBeInserted, this, rows("aboutToBeInserted"));
        connect(node, &TreeNode::nodesAboutToBeRemoved, this, rows("aboutToBeRemoved"));
        connect(node, &TreeNode::nodesInserted, this, [this] { add("inserted"); });
        connect(node, &TreeNode::nodesRemoved, this, [this] { add("removed"); });
        connect(node, &TreeNode::nodeDataChanged, this, one("dataChanged"));
        connect(node, &TreeNode::nodeChildsDataChanged, this, one("childsDataChanged"));
        connect(node, &TreeNode::setCurrentNode, this, one("setCurrent"));
        connect(node, &TreeNode::expandCurrentNode, this, one("expand"));
    }

    /** Returns what was recorded so far and starts afresh. */
    QStringList take() { return std::exchange(log, {}); }

    QStringList log;

private:
    static QString nameOf(TreeNode *node)
    {
        return node->id().isEmpty() ? node->objectName() : node->id();
    }
    template<typename... Args> void add(const char *name, const Args &...args)
    {
        const QStringList parts {QVariant(args).toString()...};
        log << name + (parts.isEmpty() ? QString() : '(' + parts.join(',') + ')');
    }
};

} // namespace OvtTest
