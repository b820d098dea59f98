// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "loginelement.h"

#include "element/elementdata.h"
#include "plugin/module.h"

namespace {

constexpr OperationType loginOperations
    = ReadContentOperation | ReadOperation | LoginOperation1 | LoginOperation2;

} // namespace

LoginElement::LoginElement(Module &module, bool (*isEditable)(const Module &))
    : Element(module, isEditable)
{
    auto *data = new ElementData;
    data->insert(QStringLiteral("user"), QString());
    data->insert(QStringLiteral("isLogin"), false);
    setElementData(data);
}

OperationType LoginElement::availableOperations() const
{
    return loginOperations;
}

void LoginElement::performOperation(OperationType operation, ElementData *data, int alternative)
{
    switch (operation) {
    case ReadContentOperation:
    case ReadOperation:
    case LoginOperation1:
    case LoginOperation2:
        module().performOperation(this, operation, data, alternative);
        break;
    default:
        break;
    }
}
