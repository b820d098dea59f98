// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/elementdata.h"

/** Carries the display variant chosen for a container element's children. */
class OVTCOMMON_EXPORT ChangeDisplayElementData : public ElementData
{
public:
    ChangeDisplayElementData();
    explicit ChangeDisplayElementData(int displayType);
    ChangeDisplayElementData(const ChangeDisplayElementData &other);
    ChangeDisplayElementData &operator=(const ChangeDisplayElementData &other);

    int displayType() const;
    void setDisplayType(int displayType);

private:
    int _displayType;
};
