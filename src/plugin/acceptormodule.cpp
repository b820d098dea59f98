// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "acceptormodule.h"

#include "element/elementdata.h"

AcceptorModule::AcceptorModule(const QString &name, int expectedDepth,
                               const QString &expectedParentId, const QString &description,
                               QObject *parent)
    : Module(name, parent, false)
{
    _expectedDepth = expectedDepth;
    _expectedParentId = expectedParentId;
    _moduleData->remove(QStringLiteral("paranoid"));
    _moduleData->insert(QStringLiteral("description"), description);
}

Element *AcceptorModule::elementFromDonor(const QString &id) const
{
    auto *donor = qobject_cast<Module *>(parentNode());
    return donor ? donor->element(id) : nullptr;
}
