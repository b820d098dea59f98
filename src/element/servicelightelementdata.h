// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementdata.h"

/** The light view of a system service: whether it runs and a text saying so. */
class OVTCOMMON_EXPORT ServiceLightElementData : public ElementData
{
public:
    ServiceLightElementData();
    ServiceLightElementData(const ServiceLightElementData &other);
    ServiceLightElementData &operator=(const ServiceLightElementData &other);

    bool state() const;
    QString textState() const;
    /**
     * Stores @p state; an empty @p textState becomes the translated "started" or "stopped",
     * any other text is kept as given.
     */
    void setState(bool state, const QString &textState = QString());

private:
    bool _state;
    QString _textState;
};
