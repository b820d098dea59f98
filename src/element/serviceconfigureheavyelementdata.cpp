// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "serviceconfigureheavyelementdata.h"

ServiceConfigureHeavyElementData::ServiceConfigureHeavyElementData() = default;

// Incompatible modes are left out of copies on purpose: they describe the record that
// computed them, and assignment is the one way to carry them over.
ServiceConfigureHeavyElementData::ServiceConfigureHeavyElementData(
    const ServiceConfigureHeavyElementData &other)
    : ServiceLightElementData(other)
    , _scriptModeCommands(other._scriptModeCommands)
    , _headers(other._headers)
    , _descriptions(other._descriptions)
    , _tasks(other._tasks)
    , _user(other._user)
    , _password(other._password)
    , _checkedItems(other._checkedItems)
    , _uncheckedItems(other._uncheckedItems)
{ }

ServiceConfigureHeavyElementData &
ServiceConfigureHeavyElementData::operator=(const ServiceConfigureHeavyElementData &other)
{
    if (&other == this)
        return *this;
    ServiceLightElementData::operator=(other);
    _scriptModeCommands = other._scriptModeCommands;
    _headers = other._headers;
    _descriptions = other._descriptions;
    _tasks = other._tasks;
    _user = other._user;
    _password = other._password;
    _checkedItems = other._checkedItems;
    _uncheckedItems = other._uncheckedItems;
    _incompatibleModes = other._incompatibleModes;
    return *this;
}

QStringList &ServiceConfigureHeavyElementData::scriptModeCommands()
{
    return _scriptModeCommands;
}

QStringList &ServiceConfigureHeavyElementData::headers()
{
    return _headers;
}

QStringList &ServiceConfigureHeavyElementData::descriptions()
{
    return _descriptions;
}

QMap<QString, QString> &ServiceConfigureHeavyElementData::tasks()
{
    return _tasks;
}

QString ServiceConfigureHeavyElementData::user() const
{
    return _user;
}

void ServiceConfigureHeavyElementData::setUser(const QString &user)
{
    _user = user;
}

QString ServiceConfigureHeavyElementData::password() const
{
    return _password;
}

void ServiceConfigureHeavyElementData::setPassword(const QString &password)
{
    _password = password;
}

QSet<QString> &ServiceConfigureHeavyElementData::checkedItems()
{
    return _checkedItems;
}

QSet<QString> &ServiceConfigureHeavyElementData::uncheckedItems()
{
    return _uncheckedItems;
}

QSet<QString> &ServiceConfigureHeavyElementData::incompatibleModes()
{
    return _incompatibleModes;
}
