// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

class Element;

/**
 * Lets a supplement element hide itself unless its parent is a login: a supplement class also
 * derives from this mixin and answers its own treeNodeSpecialFlags() through it.
 *
 * @code
 * int treeNodeSpecialFlags() const override
 * {
 *     return SupplementLoginMixin::treeNodeSpecialFlags(0x2);
 * }
 * @endcode
 */
class OVTCOMMON_EXPORT SupplementLoginMixin
{
public:
    /** @p element is the supplement itself; not owned. */
    explicit SupplementLoginMixin(Element *element);

    /**
     * @p flags, with 0x1 (hide as supplement) added when the element's parent is an element
     * whose record does not say "isLogin" = true. Without an element, a parent element or a
     * parent record, @p flags unchanged.
     */
    int treeNodeSpecialFlags(int flags) const;

protected:
    Element *_element; // not owned: the supplement element that derives from this mixin
};
