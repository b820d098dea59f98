// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "system/switchgroup.h"

#include <QString>

class SwitchWidget;

/**
 * Collects the fields of one security switch and creates its SwitchWidget.
 *
 * The setters only store; buildAndClear() creates the widget and empties the builder for the
 * next switch.
 */
class OVTCOMMON_EXPORT SwitchWidgetBuilder
{
public:
    SwitchWidgetBuilder();
    ~SwitchWidgetBuilder();

    void setId(const QString &id);
    void setName(const QString &name);
    void setLongName(const QString &longName);
    void setExtraText(const QString &extraText);
    void setTooltip(const QString &tooltip);
    void setSlave(const QString &slave);
    void setGroup(SwitchGroup group);
    void setScript(const QString &script);
    void setGray(bool gray);
    void setRebootCase(bool enable, bool disable);

    /**
     * Creates the widget (no parent; the caller owns it) and clears the fields. Returns null
     * when the id, name, long name or script is empty; the fields are then left as they are.
     */
    SwitchWidget *buildAndClear();

    /** Empties every field: strings empty, group System, flags false. */
    void clearFields();

private:
    QString _id;
    QString _name;
    QString _longName;
    QString _extraText;
    QString _tooltip;
    QString _slave;
    SwitchGroup _group = SwitchGroup::System;
    QString _script;
    bool _gray = false;
    bool _enableNeedReboot = false;
    bool _disableNeedReboot = false;
};
