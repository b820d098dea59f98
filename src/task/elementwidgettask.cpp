// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/elementwidgettask.h"

ElementWidgetTask::ElementWidgetTask(ElementWidget *widget, ElementData *data)
    : AbstractTask(data)
    , _elementWidget(widget)
{ }

ElementWidget *ElementWidgetTask::elementWidget() const
{
    return _elementWidget;
}
