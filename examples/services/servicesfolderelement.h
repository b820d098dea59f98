// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/**
 * "Services", the fixed top-level folder of the units. It offers ReadLightOperation, which
 * the element container sends after every rebuild, and passes it to its module. When the
 * units cannot be listed it says why in its own row (record key "message").
 */
class ServicesFolderElement : public Element
{
    Q_OBJECT

public:
    explicit ServicesFolderElement(Module &module);

    OperationType availableOperations() const override;
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};
