// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QStringList>
#include <QVariant>

namespace OvtCommonPrivate {

// The header of a fixed set of columns: a title for each horizontal section, shown in the
// display role only. Titles are passed in already translated, in the caller's own context.
inline QVariant horizontalHeader(int section, Qt::Orientation orientation, int role,
                                 const QStringList &titles)
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole || section < 0
        || section >= titles.size())
        return QVariant();
    return titles.at(section);
}

} // namespace OvtCommonPrivate
