// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/module.h"

/**
 * A module placed under a donor module of another plug-in, which looks up the donor's elements
 * by id. It has no force-reread check box.
 */
class OVTCOMMON_EXPORT AcceptorModule : public Module
{
    Q_OBJECT

public:
    /**
     * Places the module at @p expectedDepth under the module with id @p expectedParentId,
     * removes "paranoid" and sets "description".
     */
    AcceptorModule(const QString &name, int expectedDepth, const QString &expectedParentId,
                   const QString &description, QObject *parent);

    /** The parent module's element(@p id); null when the parent is no module. */
    Element *elementFromDonor(const QString &id) const;
};
