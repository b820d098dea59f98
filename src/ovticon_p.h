// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include <QIcon>
#include <QString>

namespace Ovt {

/**
 * The desktop theme's icon @p name; where the theme has no such icon, the library's own of the
 * same name (the task and plug-in status icons), otherwise a null icon.
 */
QIcon themeIcon(const QString &name);

} // namespace Ovt
