#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Installs the built library into a temporary prefix, checks what landed there, compiles every
# public header alone, builds the template plug-in and a small tool against the install (the
# tool through find_package and through pkg-config) and runs the tool on the plug-in.
set -euo pipefail
build_dir=$1
source_dir=$2
cxx=$3
# Sanitizer flags of the library's build: a consumer of a sanitized library needs them too.
extra_flags=${4:-}
extra_flags=${extra_flags//;/ }
plugin_source=$5
export QT_QPA_PLATFORM=offscreen

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
prefix=$work/prefix

cmake --install "$build_dir" --prefix "$prefix" > "$work/install.log"

libdir=$(dirname "$(find "$prefix" -name 'libovt-common.so.1' -print -quit)")
[ -n "$libdir" ] && [ "$libdir" != . ] || { echo "FAIL: libovt-common.so.1 not installed"; exit 1; }
for f in "$libdir/libovt-common.so" \
         "$prefix/include/ovt-common/ovtcommon_export.h" \
         "$prefix/include/ovt-common/treenode/treenode.h" \
         "$libdir/cmake/OvtCommon/OvtCommonConfig.cmake" \
         "$libdir/cmake/OvtCommon/OvtCommonConfigVersion.cmake" \
         "$libdir/pkgconfig/ovt-common.pc"; do
    [ -e "$f" ] || { echo "FAIL: missing $f"; exit 1; }
done
if find "$prefix/include" -name '*_p.h' | grep -q .; then
    echo "FAIL: private headers installed"; exit 1
fi
soname=$(objdump -p "$libdir/libovt-common.so.1" | awk '/SONAME/ {print $2}')
[ "$soname" = libovt-common.so.1 ] || { echo "FAIL: SONAME is '$soname'"; exit 1; }

targets=$libdir/cmake/OvtCommon/OvtCommonTargets.cmake
if grep -E 'PrintSupport|XmlPatterns|Network|Concurrent' "$targets"; then
    echo "FAIL: private Qt modules leak into the exported target"; exit 1
fi
includes=$(sed -n 's/.*INTERFACE_INCLUDE_DIRECTORIES "\(.*\)"/\1/p' "$targets" | tr ';' '\n')
if [ -n "$(sort <<<"$includes" | uniq -d)" ]; then
    echo "FAIL: duplicated include directories: $includes"; exit 1
fi

echo "== every public header compiles alone"
export PKG_CONFIG_PATH=$libdir/pkgconfig
cflags=$(pkg-config --cflags ovt-common)
mkdir "$work/alone"
(cd "$prefix/include" && find ovt-common -name '*.h') | while read -r header; do
    echo "#include <$header>" > "$work/alone/$(tr / _ <<<"$header").cpp"
done
# The one line every tool writes to join its two containers, with only the headers it names.
cat > "$work/alone/readme_connect.cpp" <<'EOF2'
#include <ovt-common/element/elementcontainer.h>
#include <ovt-common/plugin/plugincontainer.h>
void join(PluginContainer *plugins, ElementContainer *elements)
{
    QObject::connect(plugins, &NodeContainer::nodeContainerReset, elements,
                     &ElementContainer::pluginContainerReset);
}
EOF2
# shellcheck disable=SC2086
if ! find "$work/alone" -name '*.cpp' -print0 |
    xargs -0 -P2 -n8 "$cxx" -std=c++17 -fsyntax-only -Wall -Wextra $cflags 2> "$work/alone.log"; then
    cat "$work/alone.log"; echo "FAIL: a public header does not compile alone"; exit 1
fi

echo "== find_package: the template plug-in and the tool"
for project in "$plugin_source" "$source_dir"; do
    name=$(basename "$project")
    cmake -S "$project" -B "$work/build-$name" -DCMAKE_PREFIX_PATH="$prefix" \
        -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$extra_flags" \
        -DCMAKE_EXE_LINKER_FLAGS="$extra_flags" -DCMAKE_SHARED_LINKER_FLAGS="$extra_flags" \
        -DCMAKE_MODULE_LINKER_FLAGS="$extra_flags" > "$work/cmake-$name.log"
    cmake --build "$work/build-$name" > "$work/build-$name.log"
done
plugins=$work/build-$(basename "$plugin_source")/plugins
"$work/build-$(basename "$source_dir")/consumer" "$plugins"

echo "== pkg-config"
# shellcheck disable=SC2046
"$cxx" -std=c++17 $extra_flags "$source_dir/main.cpp" -o "$work/consumer-pc" \
    $(pkg-config --cflags --libs ovt-common) -Wl,-rpath,"$libdir"
"$work/consumer-pc" "$plugins"
echo "PASS"
