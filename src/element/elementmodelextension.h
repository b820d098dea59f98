// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "treenode/treenodemodelextension.h"

class Element;

/**
 * What every model and proxy over an element tree offers besides the node lookups: the element
 * at an index or in a selection, so widgets turn a view's current index or selection into
 * elements and perform their operations. Inherited virtually, like its base.
 */
class OVTCOMMON_EXPORT ElementModelExtension : public virtual TreeNodeModelExtension
{
public:
    /** The element at @p index; null when the node there is no element, or there is none. */
    Element *toElement(const QModelIndex &index) const;
    /** The first node of the range (in index order) as an element, or null. */
    Element *toElement(const QItemSelectionRange &range) const;
    /** The first node of the selection (in index order) as an element, or null. */
    Element *toElement(const QItemSelection &selection) const;

protected:
    // Never deleted through the interface, as for the base.
    ~ElementModelExtension() = default;
};
