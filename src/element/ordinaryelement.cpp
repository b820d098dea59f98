// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ordinaryelement.h"

#include "element/changedisplayelementdata.h"
#include "plugin/module.h"

OrdinaryElement::OrdinaryElement(Module &module, bool (*isEditable)(const Module &))
    : Element(module, isEditable)
{ }

Element *OrdinaryElement::displayParent() const
{
    auto *parent = qobject_cast<Element *>(parentNode());
    if (parent && (parent->availableOperations() & ChangeDisplayOperation))
        return parent;
    return nullptr;
}

int OrdinaryElement::displayChildrenVariant() const
{
    if (Element *parent = displayParent())
        return parent->displayChildrenVariant();
    return Element::displayChildrenVariant();
}

QStringList OrdinaryElement::displayChildrenVariants() const
{
    if (Element *parent = displayParent())
        return parent->displayChildrenVariants();
    return Element::displayChildrenVariants();
}

OperationType OrdinaryElement::availableOperations() const
{
    OperationType operations = ReadOperation;
    if (isEditable()) {
        operations = isPersistent()
            ? ReadOperation | UpdateOperation
            : CreateOperation | ReadOperation | UpdateOperation | DeleteOperation;
    }
    if (displayParent())
        operations |= ChangeDisplayOperation;
    return operations;
}

void OrdinaryElement::performOperation(OperationType operation, ElementData *data, int alternative)
{
    switch (operation) {
    case CreateOperation:
    case ReadOperation:
    case UpdateOperation:
    case DeleteOperation:
        module().performOperation(this, operation, data, alternative);
        break;
    case ChangeDisplayOperation:
        if (Element *parent = displayParent();
            parent && dynamic_cast<ChangeDisplayElementData *>(data))
            parent->performOperation(ChangeDisplayOperation, data, alternative);
        break;
    default:
        break;
    }
}
