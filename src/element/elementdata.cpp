// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "elementdata.h"

ElementData::~ElementData() = default;

void ElementData::configureParams() { }

QString ElementData::name() const
{
    return value(QStringLiteral("name")).toString();
}

void ElementData::setName(const QString &name)
{
    insert(QStringLiteral("name"), name);
}

ElementData &ElementData::importFrom(const ElementData &other)
{
    if (&other == this)
        return *this;
    // The record's own key set decides what it accepts: walk our keys, not theirs.
    for (auto it = begin(); it != end(); ++it) {
        const auto found = other.constFind(it.key());
        if (found != other.constEnd())
            it.value() = found.value();
    }
    return *this;
}
