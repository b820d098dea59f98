// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/serviceelement.h"
#include "element/servicelightelementdata.h"

/**
 * One systemd unit. ServiceElement draws its icon from the ServiceLightElementData record;
 * the record also holds "description", "load" and "sub" as systemctl listed them.
 */
class UnitElement : public ServiceElement
{
    Q_OBJECT

public:
    UnitElement(Module &module, const QString &unit, const ServiceLightElementData &record);

    QString caption() const override;
};
