// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/stoppabledummytask.h"

#include <QThread>

StoppableDummyTask::StoppableDummyTask(Element *element)
    : ElementTask(element, nullptr)
{
    _taskSpecialFlags = 1;
    _taskDescription.setDescription(tr("Stoppable dummy task"));
}

void StoppableDummyTask::run()
{
    for (int pass = 0; pass < 10; ++pass) {
        if (taskAboutToBeStopped()) {
            _taskDescription.setStatus(TaskDescription::Fail);
            _taskDescription.setMessage(tr("Terminate by user"));
            AbstractTask::run();
            return;
        }
        QThread::sleep(5);
    }
    _taskDescription.setStatus(TaskDescription::Success);
    AbstractTask::run();
}
