// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#include "ovticon_p.h"

#include <QFile>

namespace Ovt {

QIcon themeIcon(const QString &name)
{
    if (QIcon::hasThemeIcon(name))
        return QIcon::fromTheme(name);
    // Debian's default theme names no task states, which would leave the task and plug-in
    // lists without any status; the library ships those few itself.
    const QString fallback = QStringLiteral(":/ovt-common/icons/%1.svg").arg(name);
    if (QFile::exists(fallback))
        return QIcon(fallback);
    return QIcon::fromTheme(name);
}

} // namespace Ovt
