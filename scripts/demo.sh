#!/usr/bin/env bash
# One command for the demo: installs what is missing, configures into build/ as test.sh does,
# builds the demo tool and its plug-in with -j2 and starts the tool on the demo plug-in
# directory. Extra arguments go to ovt-demo (for example --quit-after 3000).
set -euo pipefail
cd "$(dirname "$0")/.."

build=$(scripts/configure.sh -DOVT_BUILD_EXAMPLES=ON)
cmake --build "$build" -j2 --target ovt-demo ovt-demo-plugin
exec "$build/examples/demo-tool/ovt-demo" "$build/examples/demo-plugin/plugins" "$@"
