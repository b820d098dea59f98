// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

/** One group: "name", "gid" and "members" (a string list) in its record. Read only. */
class GroupElement : public Element
{
    Q_OBJECT

public:
    GroupElement(Module &module, const ElementData &record);

    QString caption() const override;
    QVariant data(int column, int role) const override;
};
