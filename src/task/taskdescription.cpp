// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/taskdescription.h"

TaskDescription::TaskDescription()
    : _status(Processing)
{ }

TaskDescription::TaskDescription(const TaskDescription &other) = default;

TaskDescription &TaskDescription::operator=(const TaskDescription &other) = default;

TaskDescription::~TaskDescription() = default;

QString TaskDescription::description() const
{
    return _description;
}

void TaskDescription::setDescription(const QString &description)
{
    _description = description;
}

TaskDescription::TaskStatus TaskDescription::status() const
{
    return _status;
}

void TaskDescription::setStatus(const TaskStatus &status)
{
    _status = status;
}

QString TaskDescription::message() const
{
    return _message;
}

void TaskDescription::setMessage(const QString &message)
{
    _message = message;
}
