// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "widgets/listwidgetproxymodel.h"

/**
 * A flat list of the root's children: top-level rows that the base filter accepts; every row
 * below them is rejected, so views show no expanders.
 */
class OVTCOMMON_EXPORT NodesWidgetProxyModel : public ListWidgetProxyModel
{
    Q_OBJECT

public:
    explicit NodesWidgetProxyModel(int specialFlagsFilter = 0, QObject *parent = nullptr);
    ~NodesWidgetProxyModel() override;

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;
};
