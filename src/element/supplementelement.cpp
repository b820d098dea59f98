// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "supplementelement.h"

#include "plugin/module.h"

SupplementElement::SupplementElement(Module &module, bool (*isEditable)(const Module &))
    : Element(module, isEditable)
{ }

int SupplementElement::treeNodeSpecialFlags() const
{
    return 0x1;
}

OperationType SupplementElement::availableOperations() const
{
    return isEditable() ? ReadOperation | UpdateOperation : ReadOperation;
}

void SupplementElement::performOperation(OperationType operation, ElementData *data,
                                         int alternative)
{
    if (operation == ReadOperation || operation == UpdateOperation)
        module().performOperation(this, operation, data, alternative);
}
