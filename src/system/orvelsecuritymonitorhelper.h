// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "system/switchgroup.h"

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QMultiMap>
#include <QStringList>

class SwitchWidget;
class SwitchWidgetBuilder;

/**
 * The process-wide client of the security monitor tool "/usr/sbin/orvel-security-monitor".
 *
 * It runs the tool, validates its JSON list of switches strictly and keeps one SwitchWidget per
 * switch, grouped by SwitchGroup. Failures are thrown as std::runtime_error whose what() is the
 * translated message in UTF-8. The helper does not delete the widgets: they belong to the widget
 * tree they are placed in.
 */
class OVTCOMMON_EXPORT OrvelSecurityMonitorHelper
{
public:
    /**
     * The one instance, created on first use. Creating it reads the switches; when that fails
     * the user is shown the reason in a message box and the helper starts with no switches.
     */
    static OrvelSecurityMonitorHelper &instance();

    OrvelSecurityMonitorHelper(const OrvelSecurityMonitorHelper &) = delete;
    OrvelSecurityMonitorHelper &operator=(const OrvelSecurityMonitorHelper &) = delete;

    /**
     * Runs the tool with @p arguments, waiting up to @p timeoutMs, and returns its standard
     * output. Throws std::runtime_error when it does not finish (or cannot be started), crashes
     * or exits with a non-zero code.
     */
    QByteArray call(const QStringList &arguments, int timeoutMs) const;

    /**
     * Asks the tool for its switches and builds new widgets for them (owned by the caller). Within
     * a group the widgets come in the reverse of the tool's order; Console comes before System.
     * Throws std::runtime_error on any failure; no widget outlives a failed call. The map holds
     * several widgets per group (build a QMultiMap from it to look them up).
     */
    QMap<SwitchGroup, SwitchWidget *> switches();

    /** Replaces the stored widgets by switches(); on failure they stay and the error propagates. */
    void reloadSwitches();

    QList<SwitchWidget *> getSwitches() const;
    QList<SwitchWidget *> getSwitches(const SwitchGroup &group) const;
    QStringList getScripts() const;
    QStringList getScripts(const SwitchGroup &group) const;

private:
    OrvelSecurityMonitorHelper();
    ~OrvelSecurityMonitorHelper();

    SwitchWidgetBuilder *_builder = nullptr;
    QMultiMap<SwitchGroup, SwitchWidget *> _switchWidgets;
};
