// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementsortfilterproxymodel.h"

/**
 * An element proxy that hides supplement elements and narrows the tree to one group of
 * element types: with a group set, only elements whose (inherited) group element type is that
 * group are shown, with their descendants. Nodes that are no elements pass.
 */
class OVTCOMMON_EXPORT GroupInvisibleElementSortFilterProxyModel
    : public ElementSortFilterProxyModel
{
    Q_OBJECT

public:
    explicit GroupInvisibleElementSortFilterProxyModel(QObject *parent = nullptr);
    GroupInvisibleElementSortFilterProxyModel(const QSet<int> &acceptColumns,
                                              QObject *parent = nullptr);

    /** "Undefined" (every group) until set. */
    QString groupElementType() const;
    /**
     * Filters anew for @p type; nothing happens for the current group unless @p force, which
     * serves to re-filter after the tree changed underneath.
     */
    void setGroupElementType(const QString &type, bool force = false);

protected:
    bool filterAcceptsRow(int sourceRow, const QModelIndex &sourceParent) const override;

    QString _groupElementType;

private:
    // Whether the source is an element model, found once per source (see the base).
    mutable const TreeNodeModelExtension *_castSource = nullptr;
    mutable bool _elementSource = false;
};
