// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/** "Examples", the fixed element that carries the tasks panel. */
class TaskExamplesElement : public Element
{
    Q_OBJECT

public:
    explicit TaskExamplesElement(Module &module);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
