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
