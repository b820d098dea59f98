// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"
#include "task/taskdescription.h"

#include <QtGlobal>

class ElementData;

/**
 * Base of every task: one operation that may take time, run on a worker thread of the pool
 * (Thread) and finished on the user-interface thread.
 *
 * The creator allocates the task on the heap and hands it to TaskObserver::performTask(),
 * which owns it from then on. A worker calls run(); the completion comes back to the observer
 * as a posted TaskPerformedEvent, and the observer calls afterRun() on the user-interface
 * thread and deletes the task. A task is never reused and never runs twice.
 *
 * Subclasses set the description title and the flags in their constructors. The field order
 * and the order of the virtual functions are part of the interface.
 */
class OVTCOMMON_EXPORT AbstractTask
{
public:
    /** Takes ownership of @p data (may be null); the flags are 0, the status Processing. */
    explicit AbstractTask(ElementData *data);
    /** Deletes the element data. */
    virtual ~AbstractTask();

    /**
     * The worker-thread body. The base implementation only posts the completion event to the
     * task observer; with no observer left it deletes the task instead. Every override does its
     * work, writes status and message, and ends by calling AbstractTask::run() exactly once on
     * every path; after that it touches nothing, since the task may already be deleted on the
     * user-interface thread. A run() never throws.
     */
    virtual void run();

    /** The user-interface-thread epilogue, called by the observer just before deletion. */
    virtual void afterRun() = 0;

    /** Capability bits; bit 0 (value 1) means the user may stop the task. */
    quint64 taskSpecialFlags() const;

    /** Whether the user asked the task to stop; safe to poll from run() at any time. */
    bool taskAboutToBeStopped() const;

    /**
     * Asks a stoppable task to stop. Returns false, changing nothing, when bit 0 of the flags
     * is clear; otherwise sets the stop request (it is never cleared) and returns true, also
     * when it was already set. The task reacts at its next check point.
     */
    bool setTaskAboutToBeStopped();

    TaskDescription &taskDescription();
    const TaskDescription &taskDescription() const;

protected:
    quint64 _taskSpecialFlags;
    /** Written on the user-interface thread, read by run(): only through the accessors. */
    bool _taskAboutToBeStopped;
    ElementData *_elementData; // owned, may be null
    TaskDescription _taskDescription;

private:
    Q_DISABLE_COPY(AbstractTask)
};
