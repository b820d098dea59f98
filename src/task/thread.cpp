// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/thread.h"

#include "task/abstracttask.h"
#include "task/taskobserver.h"
#include "task/taskpool_p.h"
#include "task/tsan_p.h"

#include <exception>

namespace {

constexpr int bufferSize = 64;

// Runs @p task on this worker. A run() that throws would end the whole application; the task
// fails instead with the exception's text, and is completed unless it had already handed
// itself over (then it may be gone, and is not touched).
void runTask(AbstractTask *task)
{
    QString message;
    try {
        TaskPool::lastHandedOver() = nullptr;
        task->run();
        return;
    } catch (const std::exception &e) {
        message = QString::fromLocal8Bit(e.what());
    } catch (...) {
        message = Thread::tr("The task failed with an unexpected error.");
    }
    if (TaskPool::lastHandedOver() == task)
        return;
    task->taskDescription().setStatus(TaskDescription::Fail);
    task->taskDescription().setMessage(message);
    task->AbstractTask::run();
}

} // namespace

AbstractTask *Thread::_buffer[bufferSize] = {};
int Thread::_frontBound = 0;
int Thread::_rearBound = 0;
QSemaphore Thread::_emptyBuffer(0);
QSemaphore Thread::_fullBuffer(0);
QMutex Thread::_frontBoundMutex;
QAtomicInt Thread::_threadsCount(0);
bool Thread::_stopThread = false;

Thread::Thread(QObject *parent)
    : QThread(parent)
    , _index(-1)
{ }

Thread::~Thread()
{
    {
        Tsan::MutexLocker locker(&_frontBoundMutex);
        // A worker of ours that has not joined the pool yet must not join it any more; the
        // check in run() is made under the same mutex.
        requestInterruption();
        // With no worker in the pool there is nothing to stop; a stop flag left behind would
        // only make the next pool's workers leave at once.
        if (_threadsCount.loadAcquire() > 0) {
            Tsan::storeFlag(&_stopThread, true);
            Tsan::release(&_fullBuffer);
            _fullBuffer.release(1);
        }
    }
    wait();
    // The worker's last writes to this object happen before it is freed.
    Tsan::acquire(this);
}

bool Thread::put(AbstractTask *task)
{
    return putTask(task) == Queued;
}

Thread::PutResult Thread::putTask(AbstractTask *task)
{
    if (!task)
        return NullTask;
    // Producers may be many threads at once: the slot and _rearBound are taken under the lock
    // the workers use too. Under it the stop request and the start of a pool are also settled,
    // so a task is either in the queue before worker 0 empties it on stop, or refused.
    Tsan::MutexLocker locker(&_frontBoundMutex);
    // A stopping pool takes nothing more: worker 0 may already have emptied the queue, and a
    // task put now would never be run nor deleted.
    if (Tsan::loadFlag(&_stopThread))
        return Stopping;
    if (!_emptyBuffer.tryAcquire(1))
        return _threadsCount.loadAcquire() == 0 ? NoWorker : QueueFull;
    Tsan::acquire(&_emptyBuffer);
    _buffer[_rearBound] = task;
    _rearBound = (_rearBound + 1) % bufferSize;
    Tsan::release(&_fullBuffer);
    _fullBuffer.release(1);
    return Queued;
}

void Thread::run()
{
    {
        Tsan::MutexLocker locker(&_frontBoundMutex);
        if (isInterruptionRequested()) {
            // This Thread was destroyed before its worker got here.
            Tsan::release(this);
            return;
        }
        _index = _threadsCount.fetchAndAddOrdered(1);
        if (_index == 0) {
            for (AbstractTask *&slot : _buffer)
                slot = nullptr;
            Tsan::release(&_emptyBuffer);
            _emptyBuffer.release(bufferSize);
        }
    }

    for (;;) {
        _fullBuffer.acquire();
        Tsan::acquire(&_fullBuffer);
        if (Tsan::loadFlag(&_stopThread))
            break;
        AbstractTask *task = nullptr;
        {
            Tsan::MutexLocker locker(&_frontBoundMutex);
            // Asked again under the mutex: once worker 0 has emptied the queue on stop, no
            // other worker may take a slot and move _frontBound past _rearBound.
            if (Tsan::loadFlag(&_stopThread))
                break;
            task = _buffer[_frontBound];
            _buffer[_frontBound] = nullptr;
            _frontBound = (_frontBound + 1) % bufferSize;
        }
        Tsan::release(&_emptyBuffer);
        _emptyBuffer.release(1);
        if (task)
            runTask(task);
    }

    {
        Tsan::MutexLocker locker(&_frontBoundMutex);
        if (_index == 0) {
            // Taken slots are null, so the waiting tasks are the non-null run from
            // _frontBound on: this also covers a full queue, where _frontBound == _rearBound.
            while (AbstractTask *task = _buffer[_frontBound]) {
                _buffer[_frontBound] = nullptr;
                _frontBound = (_frontBound + 1) % bufferSize;
                // Told before the memory is freed, so that no new task at this address can be
                // listed before the observer has let go of the old one.
                TaskObserver::taskDeletedUnrun(task);
                delete task;
            }
        }
        // Leaving, the count and the relayed wake-up change under the mutex, so a worker that
        // starts a new pool (index 0, decided under the same mutex) never sees a wake-up of the
        // old pool arrive after it started.
        if (_threadsCount.fetchAndSubOrdered(1) > 1) {
            Tsan::release(&_fullBuffer);
            _fullBuffer.release(1);
        } else {
            // The last worker out puts the queue back into its initial state: no stale
            // wake-ups, no free slots until the next pool's first worker opens it, no stop
            // request. The stop request goes last: until then put() refuses every task, so the
            // producer neither writes a slot nor _rearBound while they are reset here.
            _fullBuffer.tryAcquire(_fullBuffer.available());
            _emptyBuffer.tryAcquire(_emptyBuffer.available());
            _frontBound = 0;
            _rearBound = 0;
            Tsan::storeFlag(&_stopThread, false);
        }
    }
    Tsan::release(this);
}
