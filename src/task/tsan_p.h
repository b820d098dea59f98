// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// Private to the task subsystem; never installed.
//
// Hand-over points of the worker pool for ThreadSanitizer builds (OVT_TSAN). Qt's mutexes,
// semaphores and posted events wait through futexes in a Qt that is not built with the
// sanitizer, so it cannot see the ordering they give. Each place where the pool hands memory
// from one thread to another says so here: release() just before the hand-over (putting a task
// into the queue, freeing a slot, posting the completion event, setting a stop flag) and
// acquire() just after taking it over. Outside a sanitizer build every helper is a plain
// operation or nothing at all.

#include <QMutex>

#ifdef OVT_TSAN
extern "C" {
void __tsan_acquire(void *addr);
void __tsan_release(void *addr);
}
#endif

namespace Tsan {

/** Everything this thread did before the matching release() on @p address happened before. */
inline void acquire(const void *address)
{
#ifdef OVT_TSAN
    __tsan_acquire(const_cast<void *>(address));
#else
    Q_UNUSED(address)
#endif
}

/** Publishes everything this thread did so far to the next acquire() on @p address. */
inline void release(const void *address)
{
#ifdef OVT_TSAN
    __tsan_release(const_cast<void *>(address));
#else
    Q_UNUSED(address)
#endif
}

/**
 * Reads a flag that another thread writes. The flag stays a plain bool (class layouts are
 * part of the interface); the builtin makes the access atomic and is understood by the
 * sanitizer itself, and the annotation carries what the writer did before setting it.
 */
inline bool loadFlag(const bool *flag)
{
    const bool value = __atomic_load_n(flag, __ATOMIC_ACQUIRE);
    acquire(flag);
    return value;
}

/** Writes a flag that another thread reads; see loadFlag(). */
inline void storeFlag(bool *flag, bool value)
{
    release(flag);
    __atomic_store_n(flag, value, __ATOMIC_RELEASE);
}

/** QMutexLocker that also tells the sanitizer about the lock's ordering. */
class MutexLocker
{
public:
    explicit MutexLocker(QMutex *mutex)
        : _mutex(mutex)
    {
        _mutex->lock();
        acquire(_mutex);
    }
    ~MutexLocker()
    {
        release(_mutex);
        _mutex->unlock();
    }
    MutexLocker(const MutexLocker &) = delete;
    MutexLocker &operator=(const MutexLocker &) = delete;

private:
    QMutex *_mutex; // not owned
};

} // namespace Tsan
