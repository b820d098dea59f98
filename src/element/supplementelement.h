// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * An element that another module attaches to an element (a mailbox to a user account). It
 * marks itself with special flag 0x1, so proxies that hide supplements leave it out; combine
 * it with SupplementLoginMixin to be shown only under logins.
 */
class OVTCOMMON_EXPORT SupplementElement : public Element
{
    Q_OBJECT

public:
    SupplementElement(Module &module, bool (*isEditable)(const Module &));

    /** 0x1: a supplement node. */
    int treeNodeSpecialFlags() const override;
    /** Read and Update when editable, else Read. */
    OperationType availableOperations() const override;
    /** Forwards Read and Update; ignores every other operation. */
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
};
