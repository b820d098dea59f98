// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/loginelement.h"

/**
 * One user account. Its record holds "user" and "isLogin" (true when the shell is one of
 * /etc/shells), as every LoginElement's does, plus "uid", "gid", "gecos", "home" and "shell".
 * Besides the operations of every login it offers Update while the module is editable.
 */
class AccountElement : public LoginElement
{
    Q_OBJECT

public:
    AccountElement(Module &module, const ElementData &record);

    OperationType availableOperations() const override;
    void performOperation(OperationType operation, ElementData *data, int alternative) override;
    QString caption() const override;
    QVariant data(int column, int role) const override;
};
