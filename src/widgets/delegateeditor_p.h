// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QAbstractItemModel>
#include <QWidget>

namespace OvtPrivate {

/** Names an in-place editor after its column's header, for screen readers. */
inline void nameEditor(QWidget *editor, const QModelIndex &index)
{
    if (const QAbstractItemModel *model = index.model())
        editor->setAccessibleName(model->headerData(index.column(), Qt::Horizontal).toString());
}

} // namespace OvtPrivate
