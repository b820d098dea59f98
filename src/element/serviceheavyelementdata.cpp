// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "serviceheavyelementdata.h"

ServiceHeavyElementData::ServiceHeavyElementData() = default;

ServiceHeavyElementData::ServiceHeavyElementData(const ServiceHeavyElementData &other)
    : ServiceLightElementData(other)
    , _configData(other._configData)
    , _configFile(other._configFile)
{ }

ServiceHeavyElementData &ServiceHeavyElementData::operator=(const ServiceHeavyElementData &other)
{
    if (&other == this)
        return *this;
    ServiceLightElementData::operator=(other);
    _configData = other._configData;
    _configFile = other._configFile;
    return *this;
}

QStringList &ServiceHeavyElementData::data()
{
    return _data;
}

QString ServiceHeavyElementData::configFile() const
{
    return _configFile;
}

void ServiceHeavyElementData::setConfigFile(const QString &configFile)
{
    _configFile = configFile;
}

QString ServiceHeavyElementData::configData() const
{
    return _configData;
}

void ServiceHeavyElementData::setConfigData(const QString &configData)
{
    _configData = configData;
}
