// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "choicetreenodeproxymodel.h"

#include "treenode/treenodemodelextension_p.h"

#include <functional>

ChoiceTreeNodeProxyModel::ChoiceTreeNodeProxyModel(int nameColumn, int choiceRole, int blockRole,
                                                   QObject *parent)
    : QIdentityProxyModel(parent)
    , _nameColumn(nameColumn)
    , _choiceRole(choiceRole)
    , _blockRole(blockRole)
{ }

int ChoiceTreeNodeProxyModel::nameColumn() const
{
    return _nameColumn;
}

int ChoiceTreeNodeProxyModel::choiceRole() const
{
    return _choiceRole;
}

int ChoiceTreeNodeProxyModel::blockRole() const
{
    return _blockRole;
}

QSet<QString> ChoiceTreeNodeProxyModel::checkedNames() const
{
    return _checkedNames;
}

QSet<QString> ChoiceTreeNodeProxyModel::blockedNames() const
{
    return _blockedNames;
}

QSet<QString> ChoiceTreeNodeProxyModel::addNames() const
{
    return _addNames;
}

QSet<QString> ChoiceTreeNodeProxyModel::removeNames() const
{
    return _removeNames;
}

void ChoiceTreeNodeProxyModel::setCheckedNames(const QSet<QString> &names)
{
    if (names == _checkedNames)
        return;
    beginResetModel();
    _checkedNames = names;
    // A new checked set is a new starting point: differences are counted from it.
    _addNames.clear();
    _removeNames.clear();
    endResetModel();
    emit stateChanged();
}

void ChoiceTreeNodeProxyModel::setBlockedNames(const QSet<QString> &names)
{
    if (names == _blockedNames)
        return;
    beginResetModel();
    _blockedNames = names;
    endResetModel();
    emit stateChanged();
}

void ChoiceTreeNodeProxyModel::setCheckedBlockedNames(const QSet<QString> &checked,
                                                      const QSet<QString> &blocked)
{
    if (checked == _checkedNames && blocked == _blockedNames)
        return;
    // One reset for both, so views never see the checked set paired with the old blocked one.
    beginResetModel();
    _checkedNames = checked;
    _blockedNames = blocked;
    endResetModel();
    emit stateChanged();
}

void ChoiceTreeNodeProxyModel::clearAddRemoveNames()
{
    _addNames.clear();
    _removeNames.clear();
}

TreeNode *ChoiceTreeNodeProxyModel::rootNode() const
{
    return OvtCommonPrivate::proxyRootNode(this);
}

TreeNode *ChoiceTreeNodeProxyModel::toTreeNode(const QModelIndex &index) const
{
    return OvtCommonPrivate::proxyToTreeNode(this, index);
}

QList<TreeNode *> ChoiceTreeNodeProxyModel::toTreeNode(const QItemSelectionRange &range) const
{
    return OvtCommonPrivate::nodesOfRange(this, this, range);
}

QList<TreeNode *> ChoiceTreeNodeProxyModel::toTreeNode(const QItemSelection &selection) const
{
    return OvtCommonPrivate::nodesOfSelection(this, this, selection);
}

QModelIndex ChoiceTreeNodeProxyModel::treeNodeToIndex(TreeNode *node) const
{
    return OvtCommonPrivate::proxyTreeNodeToIndex(this, node);
}

QString ChoiceTreeNodeProxyModel::nameOf(const QModelIndex &sourceIndex) const
{
    return sourceIndex.sibling(sourceIndex.row(), _nameColumn).data(Qt::DisplayRole).toString();
}

bool ChoiceTreeNodeProxyModel::isChecked(const QModelIndex &sourceIndex) const
{
    const QString name = nameOf(sourceIndex);
    if (!_blockedNames.contains(name))
        return _checkedNames.contains(name);
    // A blocked name follows the nearest ancestor the user may change; a blocked branch at
    // the top stands for something granted anyway, so it reads as ticked.
    for (QModelIndex ancestor = sourceIndex.parent(); ancestor.isValid();
         ancestor = ancestor.parent()) {
        const QString ancestorName = nameOf(ancestor);
        if (!_blockedNames.contains(ancestorName))
            return _checkedNames.contains(ancestorName);
    }
    return true;
}

QVariant ChoiceTreeNodeProxyModel::data(const QModelIndex &index, int role) const
{
    if (!sourceModel() || index.model() != this)
        return QVariant();
    if ((role != _choiceRole && role != _blockRole) || index.column() != _nameColumn)
        return QIdentityProxyModel::data(index, role);
    // Always a bool, even under Qt::CheckStateRole: readers that compare with Qt::Checked
    // rely on a ticked row reading as 1 (see ChoiceTreeNodeSortFilterProxyModel).
    return QVariant(isChecked(mapToSource(index)));
}

bool ChoiceTreeNodeProxyModel::setData(const QModelIndex &index, const QVariant &value, int role)
{
    if (!sourceModel())
        return false;
    const bool ours = index.model() == this;
    if (!OvtCommonPrivate::sourceExtension(this) || !ours || role != _choiceRole
        || index.column() != _nameColumn)
        return sourceModel()->setData(ours ? mapToSource(index) : QModelIndex(), value, role);

    const QModelIndex sourceIndex = mapToSource(index);
    const QString name = nameOf(sourceIndex);
    if (_blockedNames.contains(name))
        return false;
    const bool checked = value.toBool();
    if (checked == isChecked(sourceIndex))
        return false;

    // A name that returns to its state at the last reset leaves no difference behind.
    if (checked) {
        _checkedNames.insert(name);
        if (!_removeNames.remove(name))
            _addNames.insert(name);
    } else {
        if (!_addNames.remove(name))
            _removeNames.insert(name);
        _checkedNames.remove(name);
    }
    emit dataChanged(index, index);
    // The tick belongs to the name, not to the row: every other row of that name changes with
    // it, and so may every blocked row (it follows its nearest changeable ancestor). Views and
    // the filter proxies above only learn of a change that is announced.
    std::function<void(const QModelIndex &)> announce = [&](const QModelIndex &parent) {
        for (int row = 0, rows = rowCount(parent); row < rows; ++row) {
            const QModelIndex cell = this->index(row, _nameColumn, parent);
            const QString rowName = nameOf(mapToSource(cell));
            if (cell != index && (rowName == name || _blockedNames.contains(rowName)))
                emit dataChanged(cell, cell);
            if (hasChildren(cell.sibling(row, 0)))
                announce(cell.sibling(row, 0));
        }
    };
    announce(QModelIndex());
    emit stateChanged();
    return true;
}

Qt::ItemFlags ChoiceTreeNodeProxyModel::flags(const QModelIndex &index) const
{
    // Only the row's own name counts here: a row below a blocked one stays editable.
    if (index.isValid() && index.model() == this && sourceModel()
        && _blockedNames.contains(nameOf(mapToSource(index))))
        return Qt::NoItemFlags;
    return QIdentityProxyModel::flags(index);
}
