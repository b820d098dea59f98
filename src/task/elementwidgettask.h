// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/abstracttask.h"

class ElementWidget;

/**
 * Base of the tasks that work for one element widget (import, export, print). The widget is
 * not owned and must outlive the task.
 */
class OVTCOMMON_EXPORT ElementWidgetTask : public AbstractTask
{
public:
    /** Takes ownership of @p data (may be null), not of @p widget. */
    ElementWidgetTask(ElementWidget *widget, ElementData *data);

    ElementWidget *elementWidget() const;

protected:
    ElementWidget *_elementWidget; // not owned, must outlive the task
};
