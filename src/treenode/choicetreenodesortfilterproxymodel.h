// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodesortfilterproxymodel.h"

/**
 * Shows only the ticked, or only the unticked, rows of a ChoiceTreeNodeProxyModel.
 *
 * Each row is judged alone: a row hidden for its state hides its descendants too. Over any
 * other source every row is shown. Under Qt::CheckStateRole a row counts as ticked only when
 * it reads Qt::Checked, which a choice model never reports, so every row then counts as
 * unticked.
 */
class OVTCOMMON_EXPORT ChoiceTreeNodeSortFilterProxyModel : public TreeNodeSortFilterProxyModel
{
    Q_OBJECT

public:
    /** Shows the ticked rows when @p showChecked is true, else the unticked ones. */
    explicit ChoiceTreeNodeSortFilterProxyModel(bool showChecked, QObject *parent = nullptr);

    bool showChecked() const;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

    bool _showChecked;
};
