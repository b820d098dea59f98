// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "system/switchgroup.h"

#include <QString>
#include <QWidget>

namespace Ui {
class SwitchWidget;
}

/**
 * Shows one security switch: a check box labelled with the switch's long name, an optional
 * explanatory label and, for the switches "1", "10" and "12", a button that opens a further
 * configuration (extraButtonClicked(); what it opens is the owner's business).
 *
 * The widget remembers the state the switch had when loaded (setChecked()), so that the owner
 * can tell whether the user changed it (needApply()), whether applying needs a reboot
 * (needReboot()) and whether a dependent "slave" switch must be switched on too
 * (forceCheckSlave()).
 */
class OVTCOMMON_EXPORT SwitchWidget : public QWidget
{
    Q_OBJECT

public:
    SwitchWidget(const QString &id, const QString &name, const QString &longName,
                 const QString &tooltip, const QString &script, QWidget *parent = nullptr);
    ~SwitchWidget() override;

    /** Sets the check box and makes @p b the loaded state. */
    void setChecked(bool b);
    /** Sets the check box, keeping the loaded state; emits needApply(true) when they differ. */
    void setCheckedForced(bool b);
    bool isChecked() const;
    /** Unchecks silently and makes unchecked the loaded state. */
    void reset();

    void blockControlSignals(bool block) const;
    /** Enables or disables the controls; a gray switch stays disabled. */
    void setControlEnabled(bool enabled) const;
    /** Makes the switch permanently disabled; false does not enable it again. */
    void setGrayState(bool g);

    void setRebootCase(bool enable, bool disable);
    /** True when applying the current change needs a reboot; false while unchanged. */
    bool needReboot() const;

    /** Shows @p t below the check box; an empty text is ignored. */
    void setExtraText(const QString &t);

    void setSlaveId(const QString &slaveId);
    QString getSlaveId() const;
    bool haveSlave() const;

    void setGroup(SwitchGroup group);
    SwitchGroup getGroup() const;
    QString getId() const;
    QString getScript() const;

signals:
    /** Whether the check box now differs from the loaded state. */
    void needApply(bool need);
    void extraButtonClicked();
    /** Asks the owner to switch the slave on (emitted when a master is switched on). */
    void forceCheckSlave(bool check);

public slots:
    void checkBoxClicked(bool checked);

private:
    QString _id;
    QString _name;
    QString _longName;
    QString _tooltip;
    QString _script;
    QString _extraText;
    QString _slaveId;
    SwitchGroup _group = SwitchGroup::System;
    bool _gray = false;
    bool _initialChecked = false;
    bool _enableNeedReboot = false;
    bool _disableNeedReboot = false;
    Ui::SwitchWidget *_ui;
};
