// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/module.h"

/**
 * The "accounts" module: two folders, "Users" and "Groups", read lazily from the system's
 * account databases the first time the user opens them, and a form for one user account.
 *
 * Everything is read for everyone; the form is editable only for root (Module::isAdministrator),
 * and the change runs usermod on a worker.
 */
class AccountsModule : public Module
{
    Q_OBJECT

public:
    explicit AccountsModule(QObject *parent);

    /**
     * ReadContent on a folder reads its accounts; Read on an account fills the form from the
     * account's record; Update on an account changes it in the system.
     */
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
};
