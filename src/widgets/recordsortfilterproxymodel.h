// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QSortFilterProxyModel>

/**
 * Filters a record table by its filter regular expression over every column's display text:
 * a row stays when the expression is found in any of its cells. An empty or invalid
 * expression shows every row.
 */
class OVTCOMMON_EXPORT RecordSortFilterProxyModel : public QSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit RecordSortFilterProxyModel(QObject *parent = nullptr);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
};
