#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds an instrumented debug tree in build-coverage/ (or $OVT_BUILD_DIR), runs the suite without
# the package and install tests, and prints the line, function and branch coverage of src/ and
# examples/. Writes build-coverage/coverage.json (gcovr's format) for comparing two runs.
# Arguments are passed to ctest.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh gcovr >&2
export OVT_BUILD_DIR=${OVT_BUILD_DIR:-build-coverage}
build=$(scripts/configure.sh -DCMAKE_BUILD_TYPE=Debug "-DCMAKE_CXX_FLAGS=--coverage -fprofile-update=atomic" \
    -DCMAKE_EXE_LINKER_FLAGS=--coverage -DCMAKE_SHARED_LINKER_FLAGS=--coverage \
    -DOVT_BUILD_BENCHMARKS=OFF)
find "$build" -name '*.gcda' -delete
cmake --build "$build" -j2
(cd "$build" && ctest -j2 --output-on-failure -LE packaging -E tst_install_consumer "$@")
gcovr -r . --filter 'src/' --filter 'examples/' --exclude '.*_autogen.*' "$build" \
    --gcov-ignore-parse-errors --print-summary --json -o "$build/coverage.json"
