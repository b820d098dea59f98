// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementsortfilterproxymodel.h"

/**
 * An element proxy that keeps only selectable nodes (special flag 0x2), for lists from which
 * the user picks elements. Its display text can come from another role of the source, such as
 * the element's title (Element::TitleRole).
 */
class OVTCOMMON_EXPORT SelectableElementSortFilterProxyModel : public ElementSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit SelectableElementSortFilterProxyModel(QObject *parent = nullptr);
    SelectableElementSortFilterProxyModel(const QSet<int> &acceptColumns,
                                          QObject *parent = nullptr);

    /** The source role shown as display text; Qt::DisplayRole until set. */
    int selectionDisplayRole() const;
    /** Only stores the role, without signals: set it before the proxy is shown. */
    void setSelectionDisplayRole(int role);

    /** Qt::DisplayRole is answered with the source's selectionDisplayRole(). */
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;

protected:
    int _selectionDisplayRole;
};
