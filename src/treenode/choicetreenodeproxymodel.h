// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodemodelextension.h"

#include <QIdentityProxyModel>
#include <QSet>
#include <QString>

/**
 * Lays a tick state over any model of a node tree without touching the nodes.
 *
 * A row's name is the display text of its cell in the name column; a row is ticked when its
 * name is in the checked names. The state is read under the choice role and the block role,
 * always as a bool (for Qt::CheckStateRole too), and written under the choice role only.
 * Names ticked and unticked by the user since the last reset are kept as add and remove
 * names, so the caller applies only the difference. A blocked name cannot be changed: its
 * row has no flags and shows the state of its nearest ancestor that is not blocked (ticked
 * when there is none).
 */
class OVTCOMMON_EXPORT ChoiceTreeNodeProxyModel : public QIdentityProxyModel,
                                                  public virtual TreeNodeModelExtension
{
    Q_OBJECT

public:
    ChoiceTreeNodeProxyModel(int nameColumn, int choiceRole, int blockRole,
                             QObject *parent = nullptr);

    int nameColumn() const;
    int choiceRole() const;
    int blockRole() const;
    QSet<QString> checkedNames() const;
    QSet<QString> blockedNames() const;
    /** Names ticked by the user since the last reset that were not ticked before. */
    QSet<QString> addNames() const;
    /** Names unticked by the user since the last reset that were ticked before. */
    QSet<QString> removeNames() const;

    /**
     * Resets the model with @p names ticked and forgets the add and remove names, then emits
     * stateChanged(); nothing happens when the set is the current one.
     */
    void setCheckedNames(const QSet<QString> &names);
    /**
     * Resets the model with @p names blocked, then emits stateChanged(); the add and remove
     * names are kept. Nothing happens when the set is the current one.
     */
    void setBlockedNames(const QSet<QString> &names);
    /**
     * Takes both sets within one reset, then emits stateChanged(); nothing happens when both
     * are the current ones. The add and remove names are kept.
     */
    void setCheckedBlockedNames(const QSet<QString> &checked, const QSet<QString> &blocked);
    /** Forgets the add and remove names; emits nothing. */
    void clearAddRemoveNames();

    /** The source's root, or null when the source is no node-tree model. */
    TreeNode *rootNode() const override;
    /** The node of the row of @p index; the root for an invalid index. */
    TreeNode *toTreeNode(const QModelIndex &index) const override;
    QList<TreeNode *> toTreeNode(const QItemSelectionRange &range) const override;
    QList<TreeNode *> toTreeNode(const QItemSelection &selection) const override;
    QModelIndex treeNodeToIndex(TreeNode *node) const override;

    /** The tick state, a bool, under the choice and block roles in the name column. */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    /**
     * Ticks (any value that converts to true, so Qt::PartiallyChecked too) or unticks the
     * row's name under the choice role in the name column, then emits dataChanged() and
     * stateChanged(). False for a blocked name and for a value that changes nothing. Other
     * roles and columns go to the source.
     */
    bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
    /** No flags at all for a row whose name is blocked. */
    Qt::ItemFlags flags(const QModelIndex &index) const override;

Q_SIGNALS:
    /** The checked or blocked names changed, by a setter or by the user. */
    void stateChanged();

private:
    /** The name of the row of the source index @p sourceIndex. */
    QString nameOf(const QModelIndex &sourceIndex) const;
    /** The state of the row of the source index @p sourceIndex, blocked names included. */
    bool isChecked(const QModelIndex &sourceIndex) const;

    int _nameColumn;
    int _choiceRole;
    int _blockRole;
    QSet<QString> _checkedNames;
    QSet<QString> _blockedNames;
    QSet<QString> _addNames;
    QSet<QString> _removeNames;
};
