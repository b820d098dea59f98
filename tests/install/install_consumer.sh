#!/usr/bin/env bash
# Installs the built library into a temporary prefix, checks what landed there, and builds
# and runs a small consumer against it twice: through find_package and through pkg-config.
set -euo pipefail
build_dir=$1
source_dir=$2
cxx=$3
# Sanitizer flags of the library's build: a consumer of a sanitized library needs them too.
extra_flags=${4:-}
extra_flags=${extra_flags//;/ }

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

echo "== find_package"
cmake -S "$source_dir" -B "$work/cmake-build" -DCMAKE_PREFIX_PATH="$prefix" \
    -DCMAKE_CXX_COMPILER="$cxx" -DCMAKE_CXX_FLAGS="$extra_flags" \
    -DCMAKE_EXE_LINKER_FLAGS="$extra_flags" > "$work/cmake.log"
cmake --build "$work/cmake-build" > "$work/cmake-build.log"
"$work/cmake-build/consumer"

echo "== pkg-config"
export PKG_CONFIG_PATH=$libdir/pkgconfig
# shellcheck disable=SC2046
"$cxx" -std=c++17 $extra_flags "$source_dir/main.cpp" -o "$work/consumer-pc" \
    $(pkg-config --cflags --libs ovt-common) -Wl,-rpath,"$libdir"
"$work/consumer-pc"
echo "PASS"
