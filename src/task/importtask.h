// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementwidgettask.h"

/**
 * Imports data into an element widget's form. A plug-in derives from it, reads the source in
 * run() and leaves the result in the task's data.
 */
class OVTCOMMON_EXPORT ImportTask : public ElementWidgetTask
{
public:
    ImportTask(ElementWidget *widget, ElementData *data);

    /**
     * Unless the task failed, hands the data (still the task's) to the widget's
     * afterSuccessfulImport() when the widget is a ViewEditElementWidget.
     */
    void afterRun() override;
};
