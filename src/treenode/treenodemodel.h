// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodemodelextension.h"

#include <QAbstractItemModel>
#include <QHash>

class TreeNode;

/**
 * Presents a tree of TreeNode objects to item views without copying it.
 *
 * Every answer is read from the nodes; the node signals that arrive at the root become the
 * model's notifications. Extra root child nodes are shown as the first top-level rows without
 * being children of the root. An index's internal pointer is the parent node of its row.
 *
 * Neither the root nor the extra nodes are owned, yet either may be deleted while shown: the
 * model then resets, forgetting the deleted node (without its root the model is empty).
 */
class OVTCOMMON_EXPORT TreeNodeModel : public QAbstractItemModel,
                                       public virtual TreeNodeModelExtension
{
    Q_OBJECT

public:
    explicit TreeNodeModel(QObject *parent = nullptr);
    TreeNodeModel(TreeNode *rootNode, QObject *parent = nullptr);
    ~TreeNodeModel() override;

    TreeNode *rootNode() const override;
    /** Resets the model onto @p rootNode (not owned); nothing happens for the current root. */
    void setRootNode(TreeNode *rootNode);

    const QList<TreeNode *> &extraRootChildNodes() const;
    /** Resets the model with @p nodes shown before the root's children (not owned). */
    void setExtraRootChildNodes(const QList<TreeNode *> &nodes);
    /** Resets the model after deleting every extra root child node. */
    void deleteExtraRootChildNodes();

    TreeNode *toTreeNode(const QModelIndex &index) const override;
    QList<TreeNode *> toTreeNode(const QItemSelectionRange &range) const override;
    QList<TreeNode *> toTreeNode(const QItemSelection &selection) const override;
    QModelIndex treeNodeToIndex(TreeNode *node) const override;

    QModelIndex index(int row, int column,
                      const QModelIndex &parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex &index) const override;
    /** The parent's column is not checked: any column of a row has the row's children. */
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    /** Always the root's column count, whatever the parent. */
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;
    /** False for a node whose special flags have the 0x4 bit, even while it can fetch. */
    bool hasChildren(const QModelIndex &parent = QModelIndex()) const override;

public Q_SLOTS:
    /** Called by the tree's owner around a wholesale reload: views then see one reset. */
    void nodesAboutToBeReset();
    void nodesReset();
    void nodesAboutToBeInserted(TreeNode *parent, int first, int last);
    void nodesAboutToBeRemoved(TreeNode *parent, int first, int last);
    void nodesInserted();
    void nodesRemoved();
    void nodeDataChanged(TreeNode *node);
    void nodeChildsDataChanged(TreeNode *node);

private:
    void vertexNodeDestroyed(QObject *object);
    void connectVertexNode(TreeNode *node);
    void disconnectVertexNode(TreeNode *node);
    int rowOf(TreeNode *node, TreeNode *parent) const;
    bool isBelowExtraNode(TreeNode *node) const;

    TreeNode *_rootNode; // not owned
    QList<TreeNode *> _extraRootChildNodes; // owned only through deleteExtraRootChildNodes()
    // Remembered rows of nodes, checked before use: finding a parent's row by a list scan
    // would make walking a wide tree quadratic.
    mutable QHash<const TreeNode *, int> _rowHints;
    // Between nodesAboutToBeReset() and nodesReset() the reset's end tells views everything;
    // following the reload's insertions and removals row by row would only cost time.
    bool _resetting = false;
};
