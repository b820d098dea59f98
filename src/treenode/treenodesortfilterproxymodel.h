// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodemodelextension.h"

#include <QSet>
#include <QSortFilterProxyModel>

class TreeNodeModel;

/**
 * A sort/filter proxy over any model of a node tree that is itself such a model, so widgets
 * keep going from indexes to nodes through any stack of proxies.
 *
 * Rows are filtered by the nodes' special flags: with bit 0x1 of the filter, rows whose node
 * has special flag 0x1 are hidden (with all their descendants); with bit 0x2, only rows whose
 * node has special flag 0x2 are shown. Columns are limited to the accept columns, if any.
 * Over a source that is no node-tree model every row is accepted and no node is found.
 */
class OVTCOMMON_EXPORT TreeNodeSortFilterProxyModel : public QSortFilterProxyModel,
                                                      public virtual TreeNodeModelExtension
{
    Q_OBJECT

public:
    explicit TreeNodeSortFilterProxyModel(int specialFlagsFilter = 0, QObject *parent = nullptr);
    /** @p acceptColumns are source columns; an empty set lets every column through. */
    TreeNodeSortFilterProxyModel(const QSet<int> &acceptColumns, int specialFlagsFilter,
                                 QObject *parent = nullptr);

    int specialFlagsFilter() const;
    QSet<int> acceptColumns() const;
    /** Resets the model, even when the set does not change. */
    void setAcceptColumns(const QSet<int> &acceptColumns);

    /** The source's root, or null when the source is no node-tree model. */
    TreeNode *rootNode() const override;
    /**
     * The node of the row of @p index, whatever its column; the root for an invalid index,
     * null for an index of another model or over a source that is no node-tree model.
     */
    TreeNode *toTreeNode(const QModelIndex &index) const override;
    QList<TreeNode *> toTreeNode(const QItemSelectionRange &range) const override;
    QList<TreeNode *> toTreeNode(const QItemSelection &selection) const override;
    /** Invalid for a null node, a foreign node and a node whose row is filtered out. */
    QModelIndex treeNodeToIndex(TreeNode *node) const override;
    /** As QSortFilterProxyModel's; a row whose node has no children is answered from it. */
    int rowCount(const QModelIndex &parent = QModelIndex()) const override;

protected:
    bool filterAcceptsColumn(int sourceColumn, const QModelIndex &sourceParent) const override;
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    /** The source's node-tree interface, or null when the source is no node-tree model. */
    const TreeNodeModelExtension *sourceNodeModel() const;
    /** The node of source row @p sourceRow under @p sourceParent; null when there is none. */
    TreeNode *sourceRowNode(int sourceRow, const QModelIndex &sourceParent) const;
    /** Whether the special flags let a row with @p node through (null passes). */
    bool acceptsNodeFlags(const TreeNode *node) const;
    /** The source's @p role data of (@p sourceRow, @p column) under @p sourceParent. */
    QVariant sourceRowData(int sourceRow, int column, const QModelIndex &sourceParent,
                           int role) const;

    int _specialFlagsFilter;
    QSet<int> _acceptColumns;

private:
    /** The source when it is a plain node-tree model (its rows are read from its nodes). */
    const TreeNodeModel *plainSource() const;

    // The source's interface, found once per source: the cast across the class hierarchy on
    // every row cost more than the rest of judging it.
    mutable const QAbstractItemModel *_castSource = nullptr;
    mutable const TreeNodeModelExtension *_sourceNodeModel = nullptr;
    // The source when it answers exactly as TreeNodeModel does: its rows are then read from the
    // nodes, without a source index and a call through the model's interface for each.
    mutable const TreeNodeModel *_plainSource = nullptr;
};
