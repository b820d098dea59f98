// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QMap>
#include <QString>
#include <QVariant>

/**
 * The property record handed between elements, element widgets and tasks.
 *
 * The record is the map itself: every QMap operation applies to it. Well-known keys are
 * "name", "user", "isLogin", "state", "paranoid", "xmlText", "templateName", "htmlText" and
 * "filePath"; any other key belongs to the plug-in that uses it.
 */
class OVTCOMMON_EXPORT ElementData : public QMap<QString, QVariant>
{
public:
    ElementData() = default;
    ElementData(const ElementData &other) = default;
    ElementData &operator=(const ElementData &other) = default;
    virtual ~ElementData();

    /** Hook for plug-in subclasses to prepare their parameters before use; does nothing here. */
    virtual void configureParams();

    /** The value under "name" as a string; empty (and the key is not added) when absent. */
    QString name() const;
    void setName(const QString &name);

    /**
     * Overwrites the values of this record's own keys with those that @p other also holds.
     * Keys only @p other holds are not added; typed fields of subclasses are not touched.
     */
    ElementData &importFrom(const ElementData &other);
};
