// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QList>
#include <QObject>
#include <QString>
#include <QVariant>

/**
 * A node of every tree in the library: module trees, element trees and configuration trees.
 *
 * A node knows its parent and its ordered children; the child list does not own the children
 * (only clearDelete() and clearDeleteAll() delete). Every structural and data-change signal of
 * a descendant is forwarded, signal to signal, up to the root, where models and containers
 * listen. Item-data role 258 (Qt::UserRole + 2) answers the id, 259 the expected parent id.
 */
class OVTCOMMON_EXPORT TreeNode : public QObject
{
    Q_OBJECT

public:
    explicit TreeNode(QObject *parent = nullptr);
    TreeNode(int expectedDepth, const QString &expectedParentId, QObject *parent = nullptr);
    /** Takes the node out of its parent (with signals) and detaches, not deletes, its children. */
    ~TreeNode() override;

    // parentNode(), childNodes() and childNodesCount() are inline: models and proxies ask them
    // for every row.
    TreeNode *parentNode() const { return _parentNode; }
    /** Only stores the pointer; inserting and removing set it. */
    void setParentNode(TreeNode *parentNode);
    const QList<TreeNode *> &childNodes() const { return _childNodes; }
    int childNodesCount() const { return _childNodes.size(); }
    QString id() const;
    void setId(const QString &id);
    QString expectedParentId() const;
    int expectedDepth() const;

    void append(TreeNode *node);
    void append(const QList<TreeNode *> &nodes);
    void insert(int pos, TreeNode *node);
    /**
     * Inserts @p nodes at @p pos, clamped to [0, childNodesCount()]. An empty list does
     * nothing. Emits nodesAboutToBeInserted() and nodesInserted(), and only then connects the
     * new children's signals. The nodes' previous parents are not told.
     *
     * Skipped, with the tree left as it was for them: a null node, a node listed twice (the
     * first stays), a node that already is a child of this one, and this node itself or one
     * of its ancestors (a cycle). When nothing is left, nothing is emitted.
     */
    virtual void insert(int pos, const QList<TreeNode *> &nodes);
    /**
     * Detaches up to @p count children from @p pos on; out-of-range requests do nothing.
     * No child is deleted.
     */
    virtual void removeAt(int pos, int count);
    /** Hook for nodes that can stand in more than one place; does nothing here. */
    virtual void setAlternativeExpected(int alternative);
    /** Called on every node that loadTreeFromList() attached, once the tree is complete. */
    virtual void afterLoad();
    /** 0x1 supplement node, 0x2 selectable node, 0x4 never shows an expander. */
    virtual int treeNodeSpecialFlags() const;
    virtual int columnCount() const;
    virtual QVariant headerData(int section, Qt::Orientation orientation,
                                int role = Qt::DisplayRole) const;
    virtual QVariant data(int column, int role) const;
    virtual bool setData(int column, const QVariant &value, int role);
    virtual Qt::ItemFlags flags(int column) const;
    virtual bool canFetchMore() const;
    virtual void fetchMore();

    void clear();
    /** Whether @p node is a direct child; grandchildren do not count. */
    bool contains(TreeNode *node) const;
    int indexOf(TreeNode *node, int from = 0) const;
    bool removeOne(TreeNode *node);
    /** Takes the node out of its parent, then detaches its children. */
    void reset();
    /** Every descendant, breadth first, without the node itself. */
    QList<TreeNode *> allChildNodes() const;
    /** Detaches the children, then deletes them (their own children are only detached). */
    void clearDelete();
    /** Detaches and deletes the whole subtree, bottom-up. */
    void clearDeleteAll();
    void connectChildSignals(TreeNode *child);
    void disconnectChildSignals(TreeNode *child);

    /**
     * Builds the tree below this node from a flat list: nodes are sorted by expected depth and
     * id, and each is appended under the first node of the depth run just before its own whose
     * id is its expected parent id. Unmatched nodes are left out and stay the caller's. Every
     * attached node then gets afterLoad(), in the order of attaching.
     *
     * Null entries, repeated entries (the node is placed once), this node and its ancestors
     * are skipped. Any expected depth is allowed, INT_MIN and INT_MAX included: a run at
     * INT_MAX simply has no level below it.
     */
    void loadTreeFromList(const QList<TreeNode *> &nodes);

    void emitNodeDataChanged();
    void emitNodeChildsDataChanged();
    void emitSetCurrentNode();
    void emitExpandCurrentNode();

Q_SIGNALS:
    void nodesAboutToBeInserted(TreeNode *parent, int first, int last);
    void nodesAboutToBeRemoved(TreeNode *parent, int first, int last);
    void nodesInserted();
    void nodesRemoved();
    void nodeDataChanged(TreeNode *node);
    void nodeChildsDataChanged(TreeNode *node);
    void setCurrentNode(TreeNode *node);
    void expandCurrentNode(TreeNode *node);

protected:
    TreeNode *_parentNode; // not owned
    QList<TreeNode *> _childNodes; // not owned
    QString _id;
    QString _expectedParentId;
    int _expectedDepth;
};
