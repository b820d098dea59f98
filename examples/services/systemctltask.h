// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/element.h"

#include <QStringList>

/**
 * One of the library's service tasks run as "systemctl <action> <unit>". The task kinds leave
 * the program and its arguments to the plug-in; the unit comes after "--", so a name that
 * starts with a dash is never taken for an option, and no shell is involved.
 */
template<class ServiceTaskKind> class SystemctlTask : public ServiceTaskKind
{
public:
    explicit SystemctlTask(Element *unit)
        : ServiceTaskKind(unit)
    {
        this->_program = QStringLiteral("systemctl");
        // Without a password agent a refusal must come back as an error, not as a prompt.
        this->_arguments = QStringList {QStringLiteral("--no-ask-password"), QStringLiteral("--"),
                                        unit->title()};
        this->taskDescription().setDescription(
            QStringLiteral("systemctl %1 %2").arg(this->_command, unit->title()));
    }
};
