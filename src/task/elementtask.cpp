#include "task/elementtask.h"

ElementTask::ElementTask(Element *element, ElementData *data)
    : AbstractTask(data)
    , _element(element)
{ }

Element *ElementTask::element() const
{
    return _element;
}
