// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "task/elementwidgettask.h"

#include <QCoreApplication>

/** Exports an element widget's data. A plug-in derives from it and writes in run(). */
class OVTCOMMON_EXPORT ExportWidgetTask : public ElementWidgetTask
{
    Q_DECLARE_TR_FUNCTIONS(ExportWidgetTask)

public:
    ExportWidgetTask(ElementWidget *widget, ElementData *data);

    /** Unless the task failed, tells the user "Export success!" in a message box on the widget. */
    void afterRun() override;
};
