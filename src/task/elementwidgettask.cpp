#include "task/elementwidgettask.h"

ElementWidgetTask::ElementWidgetTask(ElementWidget *widget, ElementData *data)
    : AbstractTask(data)
    , _elementWidget(widget)
{ }

ElementWidget *ElementWidgetTask::elementWidget() const
{
    return _elementWidget;
}
