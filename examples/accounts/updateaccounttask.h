// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/updatetask.h"

#include <QCoreApplication>

/**
 * Writes the GECOS field and the login shell of one account with usermod, as root only. The
 * program gets its arguments as a list: no shell ever sees the values the user typed.
 */
class UpdateAccountTask : public UpdateTask
{
    Q_DECLARE_TR_FUNCTIONS(UpdateAccountTask)

public:
    /** @p data (owned) holds "user", "gecos" and "shell". */
    UpdateAccountTask(Element *account, ElementData *data);

    void run() override;
    /** On success writes the new values into the account's record, then settles the form. */
    void afterRun() override;
};
