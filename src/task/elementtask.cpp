// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/elementtask.h"

ElementTask::ElementTask(Element *element, ElementData *data)
    : AbstractTask(data)
    , _element(element)
{ }

Element *ElementTask::element() const
{
    return _element;
}
