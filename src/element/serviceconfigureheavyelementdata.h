// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/servicelightelementdata.h"

#include <QMap>
#include <QSet>
#include <QStringList>

/**
 * What a plug-in needs to show and apply a service's list of checkable configuration modes.
 *
 * The copy constructor starts with empty incompatible modes; assignment copies every field.
 */
class OVTCOMMON_EXPORT ServiceConfigureHeavyElementData : public ServiceLightElementData
{
public:
    ServiceConfigureHeavyElementData();
    ServiceConfigureHeavyElementData(const ServiceConfigureHeavyElementData &other);
    ServiceConfigureHeavyElementData &operator=(const ServiceConfigureHeavyElementData &other);

    QStringList &scriptModeCommands();
    QStringList &headers();
    QStringList &descriptions();
    QMap<QString, QString> &tasks();
    QString user() const;
    void setUser(const QString &user);
    QString password() const;
    void setPassword(const QString &password);
    QSet<QString> &checkedItems();
    QSet<QString> &uncheckedItems();
    QSet<QString> &incompatibleModes();

private:
    QStringList _scriptModeCommands;
    QStringList _headers;
    QStringList _descriptions;
    QMap<QString, QString> _tasks;
    QString _user;
    QString _password;
    QSet<QString> _checkedItems;
    QSet<QString> _uncheckedItems;
    QSet<QString> _incompatibleModes;
};
