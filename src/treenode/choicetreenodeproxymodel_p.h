// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/choicetreenodeproxymodel.h"

namespace OvtCommonPrivate {

// Whether a row of a choice model is shown by a proxy that shows only ticked (or only
// unticked) rows; every row of any other model is shown. Shared by the choice filter proxies.
inline bool choiceAccepts(const QAbstractItemModel *source, int sourceRow,
                          const QModelIndex &sourceParent, bool showChecked)
{
    const auto *choice = qobject_cast<const ChoiceTreeNodeProxyModel *>(source);
    if (!choice)
        return true;
    const QVariant value
        = choice->index(sourceRow, choice->nameColumn(), sourceParent).data(choice->choiceRole());
    // Under the check-state role only Qt::Checked counts as ticked; the choice model reports
    // a bool there, so its rows all count as unticked. The asymmetry between the roles is
    // deliberate and kept.
    if (choice->choiceRole() == Qt::CheckStateRole)
        return (value.toInt() == Qt::Checked) == showChecked;
    return value.toBool() == showChecked;
}

} // namespace OvtCommonPrivate
