// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "system/switchwidgetbuilder.h"

#include "system/switchwidget.h"

SwitchWidgetBuilder::SwitchWidgetBuilder() = default;

SwitchWidgetBuilder::~SwitchWidgetBuilder() = default;

void SwitchWidgetBuilder::setId(const QString &id)
{
    _id = id;
}

void SwitchWidgetBuilder::setName(const QString &name)
{
    _name = name;
}

void SwitchWidgetBuilder::setLongName(const QString &longName)
{
    _longName = longName;
}

void SwitchWidgetBuilder::setExtraText(const QString &extraText)
{
    _extraText = extraText;
}

void SwitchWidgetBuilder::setTooltip(const QString &tooltip)
{
    _tooltip = tooltip;
}

void SwitchWidgetBuilder::setSlave(const QString &slave)
{
    _slave = slave;
}

void SwitchWidgetBuilder::setGroup(SwitchGroup group)
{
    _group = group;
}

void SwitchWidgetBuilder::setScript(const QString &script)
{
    _script = script;
}

void SwitchWidgetBuilder::setGray(bool gray)
{
    _gray = gray;
}

void SwitchWidgetBuilder::setRebootCase(bool enable, bool disable)
{
    _enableNeedReboot = enable;
    _disableNeedReboot = disable;
}

SwitchWidget *SwitchWidgetBuilder::buildAndClear()
{
    if (_id.isEmpty() || _name.isEmpty() || _longName.isEmpty() || _script.isEmpty())
        return nullptr;

    auto *widget = new SwitchWidget(_id, _name, _longName, _tooltip, _script);
    if (_enableNeedReboot || _disableNeedReboot)
        widget->setRebootCase(_enableNeedReboot, _disableNeedReboot);
    if (_gray)
        widget->setGrayState(true);
    if (!_extraText.isEmpty())
        widget->setExtraText(_extraText);
    if (!_slave.isEmpty())
        widget->setSlaveId(_slave);
    widget->setGroup(_group);
    clearFields();
    return widget;
}

void SwitchWidgetBuilder::clearFields()
{
    _id.clear();
    _name.clear();
    _longName.clear();
    _extraText.clear();
    _tooltip.clear();
    _slave.clear();
    _group = SwitchGroup::System;
    _script.clear();
    _gray = false;
    _enableNeedReboot = false;
    _disableNeedReboot = false;
}
