// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

#include <QVariant>

/**
 * One row of a record table. A plug-in derives from it, knows its own columns and sets
 * _changed when its values change; RecordModel owns the records it shows.
 */
class OVTCOMMON_EXPORT Record
{
public:
    Record();
    virtual ~Record();

    /** A blank trailing row: imported records go before such rows. */
    virtual bool isEmpty() const = 0;
    /** The values are acceptable. */
    virtual bool isValid() const = 0;
    virtual bool isEditable(int column) const = 0;
    virtual QVariant data(int column, int role) const = 0;
    /** Stores an edited value; false refuses it. */
    virtual bool setData(int column, const QVariant &value) = 0;

    bool isChanged() const;
    void unchange();

protected:
    bool _changed;
};
