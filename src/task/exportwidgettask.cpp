// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "task/exportwidgettask.h"

#include "widgets/elementwidget.h"

#include <QMessageBox>

ExportWidgetTask::ExportWidgetTask(ElementWidget *widget, ElementData *data)
    : ElementWidgetTask(widget, data)
{ }

void ExportWidgetTask::afterRun()
{
    if (_taskDescription.status() == TaskDescription::Fail)
        return;
    QMessageBox::information(_elementWidget, tr("Export"), tr("Export success!"), QMessageBox::Ok);
}
