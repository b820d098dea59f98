#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs what is missing and configures the development build (build/, or $OVT_BUILD_DIR),
# with the translations read from the build tree. Prints the build directory's absolute path.
# Extra CMake arguments come from $OVT_CMAKE_ARGS or from this script's arguments.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/install-deps.sh >&2
build=${OVT_BUILD_DIR:-build}
mkdir -p "$build"
build=$(cd "$build" && pwd)
# shellcheck disable=SC2086
cmake -S . -B "$build" -G Ninja \
    -DCMAKE_BUILD_TYPE=RelWithDebInfo \
    -DOVT_TRANSLATIONS_DIR="$build/translations" \
    ${OVT_CMAKE_ARGS:-} "$@" >&2
echo "$build"
