// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

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
