// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/dummytask.h"

#include "task/tsan_p.h"

#include <QMutex>
#include <QSet>
#include <QThread>

namespace {

// The outcome asked for at construction. Plug-ins may derive from the class, so its layout
// stays that of ElementTask and the wish is kept aside.
QMutex failingMutex;
QSet<const DummyTask *> failing;

} // namespace

DummyTask::DummyTask(Element *element, bool succeed)
    : ElementTask(element, nullptr)
{
    _taskDescription.setDescription(tr("Dummy task"));
    if (!succeed) {
        Tsan::MutexLocker locker(&failingMutex);
        failing.insert(this);
    }
}

DummyTask::~DummyTask()
{
    Tsan::MutexLocker locker(&failingMutex);
    failing.remove(this);
}

void DummyTask::run()
{
    QThread::sleep(5);
    bool succeed;
    {
        Tsan::MutexLocker locker(&failingMutex);
        succeed = !failing.contains(this);
    }
    if (succeed) {
        _taskDescription.setStatus(TaskDescription::Success);
    } else {
        _taskDescription.setStatus(TaskDescription::Fail);
        _taskDescription.setMessage(tr("ERROR!!!\nERROR!!!\nERROR!!!\nERROR!!!\n"));
    }
    AbstractTask::run();
}
