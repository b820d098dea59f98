// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/containerelement.h"

/**
 * "Users" or "Groups": a fixed top-level folder whose children are read lazily, the first time
 * the user opens it (ContainerElement asks its module for ReadContentOperation).
 */
class AccountFolderElement : public ContainerElement
{
    Q_OBJECT

public:
    enum Kind { Users, Groups };

    AccountFolderElement(Module &module, Kind kind);

    /** Kept in the record (key "kind"): element classes carry their state there. */
    Kind kind() const;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};
