// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

#include "ovtcommon_export.h"

/**
 * The mandatory-integrity check of the operating system. Where the system library is present
 * the build uses it; otherwise this library answers itself, for a system without mandatory
 * integrity control, where every process runs at the only (and so the maximal) level.
 */
class OVTCOMMON_EXPORT MICDetect
{
public:
    /** Whether the calling process runs at the system's highest mandatory integrity level. */
    static bool isCurrentProcessHasMaxMIC();
};
