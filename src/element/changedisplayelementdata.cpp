// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "changedisplayelementdata.h"

ChangeDisplayElementData::ChangeDisplayElementData()
    : ChangeDisplayElementData(0)
{ }

ChangeDisplayElementData::ChangeDisplayElementData(int displayType)
    : _displayType(displayType)
{ }

ChangeDisplayElementData::ChangeDisplayElementData(const ChangeDisplayElementData &other)
    : ElementData(other)
    , _displayType(other._displayType)
{ }

ChangeDisplayElementData &ChangeDisplayElementData::operator=(const ChangeDisplayElementData &other)
{
    if (&other == this)
        return *this;
    ElementData::operator=(other);
    _displayType = other._displayType;
    return *this;
}

int ChangeDisplayElementData::displayType() const
{
    return _displayType;
}

void ChangeDisplayElementData::setDisplayType(int displayType)
{
    _displayType = displayType;
}
