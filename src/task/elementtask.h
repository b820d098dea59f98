// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/abstracttask.h"

class Element;

/**
 * Base of the tasks that work on one element of a module's tree. The element is not owned and
 * must outlive the task; only DeleteTask deletes it, on purpose, in its afterRun().
 */
class OVTCOMMON_EXPORT ElementTask : public AbstractTask
{
public:
    /** Takes ownership of @p data (may be null), not of @p element. */
    ElementTask(Element *element, ElementData *data);

    /** The element the task works on; null once a DeleteTask has deleted it. */
    Element *element() const;

protected:
    Element *_element; // not owned, must outlive the task
};
