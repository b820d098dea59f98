#pragma once

/**
 * The two groups of security switches: those of the orvel console ("console" in the security
 * monitor's list) and all others.
 */
enum class SwitchGroup {
    Console = 0,
    System = 1,
};
