// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "choicefiltertreenodesortfilterproxymodel.h"

#include "treenode/choicetreenodeproxymodel_p.h"

ChoiceFilterTreeNodeSortFilterProxyModel::ChoiceFilterTreeNodeSortFilterProxyModel(bool showChecked,
                                                                                   QObject *parent)
    : FilterTreeNodeSortFilterProxyModel(0x1, parent)
    , _showChecked(showChecked)
{ }

bool ChoiceFilterTreeNodeSortFilterProxyModel::showChecked() const
{
    return _showChecked;
}

bool ChoiceFilterTreeNodeSortFilterProxyModel::filterAcceptsRow(
    int sourceRow, const QModelIndex &sourceParent) const
{
    if (!FilterTreeNodeSortFilterProxyModel::filterAcceptsRow(sourceRow, sourceParent))
        return false;
    return OvtCommonPrivate::choiceAccepts(sourceModel(), sourceRow, sourceParent, _showChecked);
}
