// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/module.h"

class UnitElement;

/**
 * The "services" module: a fixed "Services" folder whose units are listed by systemctl after
 * every rebuild of the element tree, and a panel that starts, stops, restarts and reloads the
 * current unit through the library's service tasks.
 */
class ServicesModule : public Module
{
    Q_OBJECT

public:
    enum Action { Start, Stop, Restart, Reload };

    explicit ServicesModule(QObject *parent);

    /** ReadLight on the folder lists the units. */
    void performOperation(ContextOperation *context, OperationType type, ElementData *data,
                          int alternative) override;
    /** Runs "systemctl <action> <unit>" on a worker; as root only, or the task fails. */
    void control(UnitElement *unit, Action action);
};
