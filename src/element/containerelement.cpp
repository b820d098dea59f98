// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "containerelement.h"

#include "element/changedisplayelementdata.h"
#include "plugin/module.h"

ContainerElement::ContainerElement(Module &module, bool (*isEditable)(const Module &))
    : Element(module, isEditable)
{
    _requireLoad = true;
}

OperationType ContainerElement::availableOperations() const
{
    return isEditable() ? CreateOperation | ReadContentOperation : ReadContentOperation;
}

void ContainerElement::performOperation(OperationType operation, ElementData *data, int alternative)
{
    switch (operation) {
    case ReadContentOperation:
        module().performOperation(this, operation, data, alternative);
        // After the module call: a module that reads synchronously may have looked at the
        // flag while inserting.
        _requireLoad = false;
        break;
    case CreateOperation:
        // The offer reflects editability; the routing does not, so the module decides.
        module().performOperation(this, operation, data, alternative);
        break;
    case ChangeDisplayOperation:
        if (auto *display = dynamic_cast<ChangeDisplayElementData *>(data)) {
            _displayChildrenVariant = display->displayType();
            emitNodeChildsDataChanged();
        }
        break;
    default:
        break;
    }
}

void ContainerElement::resetRequireLoad()
{
    _requireLoad = true;
}
