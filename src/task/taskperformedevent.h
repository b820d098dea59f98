// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QEvent>

class AbstractTask;

/**
 * Custom event of type 1002 (QEvent::User + 2) that a finished task posts to the task
 * observer. The event refers to the task but does not own it.
 */
class OVTCOMMON_EXPORT TaskPerformedEvent : public QEvent
{
public:
    /** The event type, 1002. */
    enum { Type = QEvent::User + 2 };

    explicit TaskPerformedEvent(AbstractTask *task);
    ~TaskPerformedEvent() override;

    AbstractTask *task() const;

private:
    AbstractTask *_task; // not owned
};
