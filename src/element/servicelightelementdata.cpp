// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "servicelightelementdata.h"

#include <QObject>

ServiceLightElementData::ServiceLightElementData()
    : _state(false)
{ }

ServiceLightElementData::ServiceLightElementData(const ServiceLightElementData &other)
    : ElementData(other)
    , _state(other._state)
    , _textState(other._textState)
{ }

ServiceLightElementData &ServiceLightElementData::operator=(const ServiceLightElementData &other)
{
    if (&other == this)
        return *this;
    ElementData::operator=(other);
    _state = other._state;
    _textState = other._textState;
    return *this;
}

bool ServiceLightElementData::state() const
{
    return _state;
}

QString ServiceLightElementData::textState() const
{
    return _textState;
}

void ServiceLightElementData::setState(bool state, const QString &textState)
{
    _state = state;
    if (textState.isEmpty())
        _textState = state ? QObject::tr("started") : QObject::tr("stopped");
    else
        _textState = textState;
}
