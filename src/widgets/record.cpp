#include "record.h"

Record::Record()
    : _changed(false)
{ }

Record::~Record() = default;

bool Record::isChanged() const
{
    return _changed;
}

void Record::unchange()
{
    _changed = false;
}
