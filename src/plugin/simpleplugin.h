// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "plugin/plugin.h"

/**
 * The record that stands in a container for a plug-in file that is not kept loaded: a valid
 * plug-in without modules, or one that failed its validity check (then not available, with an
 * error description).
 */
class OVTCOMMON_EXPORT SimplePlugin : public Plugin
{
    Q_OBJECT

public:
    SimplePlugin(const QString &name, const QString &description);
    ~SimplePlugin() override;

    bool available() const;
    void setAvailable(bool available);
    QString errorDescription() const;
    void setErrorDescription(const QString &errorDescription);

protected:
    bool _available;
    QString _errorDescription;
};
