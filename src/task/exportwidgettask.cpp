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
