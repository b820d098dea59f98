// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "element/servicelightelementdata.h"

#include <QStringList>

/**
 * The heavy view of a system service: its data lines and its configuration file.
 *
 * Copies leave out the data lines: they are bulky and belong to the record that read them.
 * A copy-constructed record starts with an empty list; an assigned one keeps its own.
 */
class OVTCOMMON_EXPORT ServiceHeavyElementData : public ServiceLightElementData
{
public:
    ServiceHeavyElementData();
    ServiceHeavyElementData(const ServiceHeavyElementData &other);
    ServiceHeavyElementData &operator=(const ServiceHeavyElementData &other);

    QStringList &data();
    QString configFile() const;
    void setConfigFile(const QString &configFile);
    QString configData() const;
    void setConfigData(const QString &configData);

private:
    QStringList _data;
    QString _configData;
    QString _configFile;
};
