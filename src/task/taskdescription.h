// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QString>

/**
 * Title, state and outcome message of one task.
 *
 * A plain value: the task writes its own description, and the task observer keeps a copy of
 * it for every row of its list. A default-constructed description has empty texts and the
 * status Processing.
 */
class OVTCOMMON_EXPORT TaskDescription
{
public:
    /** The state of a task; the numbers are stored and compared, keep them. */
    enum TaskStatus {
        Processing = 0, ///< queued or running
        Fail = 1, ///< finished with an error
        Success = 2, ///< finished normally
        Warning = 3, ///< finished, but with something the user must see
        AboutToBeStopped = 4 ///< the user asked a stoppable task to stop; it has not yet reacted
    };

    TaskDescription();
    TaskDescription(const TaskDescription &other);
    TaskDescription &operator=(const TaskDescription &other);
    ~TaskDescription();

    /** The human-readable title shown in the task list. */
    QString description() const;
    void setDescription(const QString &description);

    TaskStatus status() const;
    void setStatus(const TaskStatus &status);

    /** The result or error text shown for the task. */
    QString message() const;
    void setMessage(const QString &message);

private:
    QString _description;
    TaskStatus _status;
    QString _message;
};
