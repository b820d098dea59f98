// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * A user account. Offers reading its children and itself and the two login-specific
 * operations, whether or not the module is editable, and forwards exactly those to its module.
 *
 * Its record starts with "user" (empty) and "isLogin" (false); the plug-in sets "isLogin" to
 * true for real logins, which lets supplements under it be shown (SupplementLoginMixin).
 */
class OVTCOMMON_EXPORT LoginElement : public Element
{
    Q_OBJECT

public:
    LoginElement(Module &module, bool (*isEditable)(const Module &));

    /** ReadContent, Read, LoginOperation1 and LoginOperation2, editable or not. */
    OperationType availableOperations() const override;
    /** Forwards the offered operations to the module; ignores every other. */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
};
