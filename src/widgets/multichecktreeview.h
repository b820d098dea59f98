// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QPointer>
#include <QTreeView>

/**
 * A tree view over a model with check boxes in one column (column 0 by default) in which
 * ticking or unticking a node does the same to its whole subtree, and every parent shows
 * Qt::Checked, Qt::Unchecked or Qt::PartiallyChecked after its children. Ticking a partially
 * checked parent ticks it fully.
 *
 * The view writes the states through setData() under Qt::CheckStateRole, so the model must
 * accept all three states; it follows changes made by code as well as by the user. Only the
 * rows the model has already fetched are touched.
 */
class OVTCOMMON_EXPORT MultiCheckTreeView : public QTreeView
{
    Q_OBJECT

public:
    explicit MultiCheckTreeView(QWidget *parent = nullptr);

    void setModel(QAbstractItemModel *model) override;
    int checkColumn() const;
    void setCheckColumn(int column);
    /** The checked indexes of the check column, in depth-first order. */
    QModelIndexList checkedIndexes() const;

private:
    void onDataChanged(const QModelIndex &topLeft, const QModelIndex &bottomRight,
                       const QVector<int> &roles);
    void setSubtree(const QModelIndex &index, const QVariant &state);
    void updateAncestors(const QModelIndex &index);
    void collectChecked(const QModelIndex &parent, QModelIndexList *checked) const;

    int _checkColumn;
    bool _propagating;
    QPointer<QAbstractItemModel> _watched;
};
