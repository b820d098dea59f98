// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "contextoperation.h"

#include "element/element.h"
#include "widgets/elementwidget.h"

const QString ContextOperation::undefinedElementType = QStringLiteral("Undefined");
const QString ContextOperation::allElementType = QStringLiteral("All");

ContextOperation::ContextOperation(ContextType contextType, Module &module,
                                   bool (*isEditable)(const Module &))
    : _module(module)
    , _isEditable(isEditable)
    , _elementType(undefinedElementType)
    , _contextType(contextType)
{ }

ContextOperation::~ContextOperation() = default;

OperationType ContextOperation::availableOperations() const
{
    return NoOperation;
}

void ContextOperation::performOperation(OperationType, ElementData *, int) { }

Module &ContextOperation::module() const
{
    return _module;
}

QString ContextOperation::elementType() const
{
    return _elementType;
}

ContextOperation::ContextType ContextOperation::contextType() const
{
    return _contextType;
}

bool ContextOperation::isEditable() const
{
    return _isEditable && _isEditable(_module);
}

Element *ContextOperation::elementContext()
{
    return dynamic_cast<Element *>(this);
}

ElementWidget *ContextOperation::elementWidgetContext()
{
    return dynamic_cast<ElementWidget *>(this);
}
