#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# One command for the demo: installs what is missing, configures into build/ as test.sh does,
# builds the demo tool and every example plug-in with -j2 and starts the tool on the example
# plug-in directory. Extra arguments go to ovt-demo (for example --quit-after 3000).
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(scripts/configure.sh -DOVT_BUILD_EXAMPLES=ON)
# The tool's target depends on every example plug-in.
cmake --build "$build" -j2 --target ovt-demo
exec "$build/examples/demo-tool/ovt-demo" "$@"
