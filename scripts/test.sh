#!/usr/bin/env bash
# One command for every test: installs what is missing, configures, builds with -j2 and
# runs the whole suite through CTest. Extra arguments go to ctest (for example -R tst_treenode).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
build=${OVT_BUILD_DIR:-build}
mkdir -p "$build"
build=$(cd "$build" && pwd)
cmake -S . -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DOVT_TRANSLATIONS_DIR="$build/translations" \
    ${OVT_CMAKE_ARGS:-}
cmake --build "$build" -j2
cd "$build"
ctest --output-on-failure -j2 "$@"
