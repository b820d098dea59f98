#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# One command for every test: installs what is missing, configures, builds with -j2 and
# runs the whole suite through CTest. Extra arguments go to ctest (for example -R tst_treenode).
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(scripts/configure.sh)
cmake --build "$build" -j2
cd "$build"
ctest --output-on-failure -j2 "$@"
