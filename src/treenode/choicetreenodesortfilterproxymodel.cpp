// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "choicetreenodesortfilterproxymodel.h"

#include "treenode/choicetreenodeproxymodel.h"
#include "treenode/choicetreenodeproxymodel_p.h"

ChoiceTreeNodeSortFilterProxyModel::ChoiceTreeNodeSortFilterProxyModel(bool showChecked,
                                                                       QObject *parent)
    : TreeNodeSortFilterProxyModel(0x1, parent)
    , _showChecked(showChecked)
{ }

bool ChoiceTreeNodeSortFilterProxyModel::showChecked() const
{
    return _showChecked;
}

bool ChoiceTreeNodeSortFilterProxyModel::filterAcceptsRow(int sourceRow,
                                                          const QModelIndex &sourceParent) const
{
    // Rows are judged by their state alone: the special-flags filter handed to the base is
    // left to the text-filtering variant.
    return OvtCommonPrivate::choiceAccepts(sourceModel(), sourceRow, sourceParent, _showChecked);
}
