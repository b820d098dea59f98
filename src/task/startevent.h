// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QEvent>
#include <QString>

/** Custom event of type 1001 (QEvent::User + 1) carrying the path of a plug-in. */
class OVTCOMMON_EXPORT StartEvent : public QEvent
{
public:
    /** The event type, 1001. */
    enum { Type = QEvent::User + 1 };

    explicit StartEvent(const QString &pluginPath);
    ~StartEvent() override;

    QString pluginPath() const;

private:
    QString _pluginPath;
};
