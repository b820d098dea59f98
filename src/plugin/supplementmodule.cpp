// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "supplementmodule.h"

#include "element/contextoperation.h"
#include "element/element.h"
#include "element/elementdata.h"

SupplementModule::SupplementModule(const QString &name, int expectedDepth,
                                   const QString &expectedParentId, const QString &description,
                                   const QString &supplementElementType, Module *donor,
                                   QObject *parent)
    : Module(name, parent, false)
    , _donor(donor)
    , _supplementElementType(supplementElementType)
{
    _expectedDepth = expectedDepth;
    _expectedParentId = expectedParentId;
    _moduleData->remove(QStringLiteral("paranoid"));
    _moduleData->insert(QStringLiteral("description"), description);
}

void SupplementModule::performOperation(ContextOperation *operation, OperationType type,
                                        ElementData *data, int alternative)
{
    if (!operation || operation->contextType() != ContextOperation::ElementContext)
        return;
    Element *element = operation->elementContext();
    if (!element || type != InsertedOperation || element->elementType() != _supplementElementType)
        return;
    Q_ASSERT_X(_donor, "SupplementModule", "an element was inserted before the donor was set");
    _donor->performOperation(operation, type, data, alternative);
}

Module *SupplementModule::donor() const
{
    return _donor;
}

QString SupplementModule::supplementElementType() const
{
    return _supplementElementType;
}
