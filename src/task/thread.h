#pragma once

#include "ovtcommon_export.h"

#include <QAtomicInt>
#include <QMutex>
#include <QSemaphore>
#include <QThread>

class AbstractTask;

/**
 * One worker of the process-wide task pool.
 *
 * The queue is static and shared by every Thread: a circular buffer of 64 waiting tasks,
 * bounded by two semaphores. The application creates and starts as many Thread objects as it
 * wants (each start() adds one worker) and destroys them at exit; the library never creates
 * one. The queue comes to life when the first worker starts; until then put() refuses tasks.
 *
 * Destroying any Thread while the pool has workers stops the whole pool: every worker leaves
 * its loop, and the tasks still waiting are deleted without run() or afterRun(). Once the
 * last worker has left, the queue is back in its initial state, so a later set of started
 * Thread objects forms a new pool. Destroy all Thread objects of one pool before starting the
 * next: destroying a Thread always stops the pool that is running at that moment.
 */
class OVTCOMMON_EXPORT Thread : public QThread
{
    Q_OBJECT

public:
    explicit Thread(QObject *parent = nullptr);
    /** Stops the pool (see the class description) and waits for this worker without limit. */
    ~Thread() override;

    /**
     * Puts @p task at the rear of the queue; called on the user-interface thread only (the
     * single producer). Returns false, and the task stays with the caller, for a null task,
     * when no worker has started yet, when the pool is stopping, and when 64 tasks are already
     * waiting. Never blocks.
     */
    static bool put(AbstractTask *task);

protected:
    void run() override;

private:
    static AbstractTask *_buffer[64];
    static int _frontBound;
    static int _rearBound;
    static QSemaphore _emptyBuffer;
    static QSemaphore _fullBuffer;
    static QMutex _frontBoundMutex;
    static QAtomicInt _threadsCount;
    static bool _stopThread;

    int _index;
};
