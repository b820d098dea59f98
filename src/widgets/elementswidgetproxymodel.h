// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/listwidgetproxymodel.h"

/**
 * A flat table of the root's children without column 0 (the caption column the tree beside it
 * already shows).
 *
 * A top-level row is shown when the base filter accepts it and, with a non-empty valid
 * filterRegExp(), when the expression is found in the display text of one of its columns from
 * 1 on. An empty or invalid expression (a pattern still being typed) hides nothing; a source
 * with column 0 only shows no row as soon as a valid expression is set. Rows below the
 * top level are never shown.
 */
class OVTCOMMON_EXPORT ElementsWidgetProxyModel : public ListWidgetProxyModel
{
    Q_OBJECT

public:
    explicit ElementsWidgetProxyModel(int specialFlagsFilter = 0, QObject *parent = nullptr);
    ~ElementsWidgetProxyModel() override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
    bool filterAcceptsColumn(int sourceColumn, const QModelIndex &sourceParent) const override;
};
