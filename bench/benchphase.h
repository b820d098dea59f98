// SPDX-FileCopyrightText: 2026 The ovt-common developers
// SPDX-License-Identifier: LGPL-2.1-or-later

#pragma once

// Marks the measured stretches of a benchmark for callgrind: under valgrind each stretch is
// counted on its own and dumped under its name (bench/callgrind-ratios.py reads the dumps and
// prints instruction ratios, which a shared machine cannot disturb). Outside valgrind, and where
// valgrind's header is missing, the marks cost a few instructions.

#if __has_include(<valgrind/callgrind.h>)
#include <valgrind/callgrind.h>
#define OVT_BENCH_PHASE_BEGIN() CALLGRIND_ZERO_STATS
#define OVT_BENCH_PHASE_END(name) CALLGRIND_DUMP_STATS_AT(name)
#else
#define OVT_BENCH_PHASE_BEGIN() ((void)0)
#define OVT_BENCH_PHASE_END(name) ((void)(name))
#endif
