#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Prints the size of the test suite against the code it tests: non-blank C++ lines under tests/
# against those under src/ and examples/ (benchmarks and fuzz targets count on neither side),
# then per test directory. The suite is kept between 0.22 and 0.38; exits 1 outside that range.
set -euo pipefail
cd "$(dirname "$0")/.."

lines() { git ls-files -- "$@" | grep -E '\.(cpp|h)$' | tr '\n' '\0' | xargs -0 cat | grep -cv '^[[:space:]]*$' || true; }

tests=$(lines tests)
code=$(lines src examples)
ratio=$(awk -v t="$tests" -v c="$code" 'BEGIN { printf "%.3f", t / c }')
echo "tests/: $tests lines, src/ + examples/: $code lines, ratio $ratio (kept between 0.22 and 0.38)"
for d in tests/*/; do
    printf '  %-16s %5s\n' "$d" "$(lines "$d")"
done
awk -v r="$ratio" 'BEGIN { exit !(r >= 0.22 && r <= 0.38) }'
