#!/usr/bin/env bash
# One command for the demo: installs what is missing, configures into build/ as test.sh does,
# builds the demo tool and its plug-in with -j2 and starts the tool on the demo plug-in
# directory. Extra arguments go to ovt-demo (for example --quit-after 3000).
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh
build=${OVT_BUILD_DIR:-build}
mkdir -p "$build"
build=$(cd "$build" && pwd)
cmake -S . -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DOVT_TRANSLATIONS_DIR="$build/translations" \
    -DOVT_BUILD_EXAMPLES=ON \
    ${OVT_CMAKE_ARGS:-}
cmake --build "$build" -j2 --target ovt-demo ovt-demo-plugin
exec "$build/examples/demo-tool/ovt-demo" "$build/examples/demo-plugin/plugins" "$@"
