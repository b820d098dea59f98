// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

/**
 * The two groups of security switches: those of the orvel console ("console" in the security
 * monitor's list) and all others.
 */
enum class SwitchGroup {
    Console = 0,
    System = 1,
};
