#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds the Debian packages from a copy of the source tree, unpacks them into a scratch root,
# builds the template plug-in and a small tool against the unpacked -dev package, and runs the
# tool (and the packaged demo tool) on the plug-in with the packaged library. Slow: a whole
# package build.
set -euo pipefail
source_root=$1
consumer_source=$2
plugin_source=$3

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
src=$work/ovt-common
mkdir "$src"
# Only what the project tracks (or would track): no build trees, no editor files.
if git -C "$source_root" rev-parse --is-inside-work-tree > /dev/null 2>&1; then
    git -C "$source_root" ls-files -z -co --exclude-standard |
        (cd "$source_root" && tar --null -T - -cf -) | tar -xf - -C "$src"
else
    (cd "$source_root" && tar --exclude='./build*' -cf - .) | tar -xf - -C "$src"
fi

export DEB_BUILD_OPTIONS="nocheck parallel=2"
# Without the source path in the flags, repeated runs share one compiler cache.
export DEB_BUILD_MAINT_OPTIONS="hardening=+all reproducible=-fixfilepath,-fixdebugpath"
if command -v ccache > /dev/null; then
    export CMAKE_CXX_COMPILER_LAUNCHER=ccache CCACHE_BASEDIR=$src CCACHE_NOHASHDIR=1
fi
echo "== dpkg-buildpackage"
if ! (cd "$src" && dpkg-buildpackage -us -uc -b) > "$work/package.log" 2>&1; then
    tail -n 60 "$work/package.log"; echo "FAIL: the package build failed"; exit 1
fi
root=$work/root
for package in libovt-common1 libovt-common-dev ovt-demo; do
    deb=$(find "$work" -maxdepth 1 -name "${package}_*.deb" -print -quit)
    [ -n "$deb" ] || { echo "FAIL: no $package package"; exit 1; }
    dpkg-deb -x "$deb" "$root"
    echo "$package: $(dpkg-deb -c "$deb" | wc -l) entries"
done
multiarch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)
libdir=$root/usr/lib/$multiarch
for f in "$libdir/libovt-common.so.1" "$libdir/libovt-common.so" \
         "$libdir/cmake/OvtCommon/OvtCommonConfig.cmake" "$libdir/pkgconfig/ovt-common.pc" \
         "$root/usr/include/ovt-common/plugin/plugin.h" \
         "$root/usr/share/zan/translations/libovt-common_ru.qm" "$root/usr/bin/ovt-demo"; do
    [ -e "$f" ] || { echo "FAIL: missing ${f#"$root"}"; exit 1; }
done
find "$libdir/ovt-demo" -name '*.so' | grep -q . || { echo "FAIL: no demo plug-in"; exit 1; }

echo "== template plug-in and tool against the unpacked -dev package"
for project in "$plugin_source" "$consumer_source"; do
    name=$(basename "$project")
    cmake -S "$project" -B "$work/build-$name" -DCMAKE_PREFIX_PATH="$root/usr" \
        > "$work/cmake-$name.log"
    cmake --build "$work/build-$name" > "$work/build-$name.log"
done
plugins=$work/build-$(basename "$plugin_source")/plugins
export QT_QPA_PLATFORM=offscreen LD_LIBRARY_PATH=$libdir XDG_CONFIG_HOME=$work/config
# The packaged library finds its catalogue below its own place in the scratch root.
output=$(LC_ALL=ru_RU.UTF-8 LANG=ru_RU.UTF-8 \
    "$work/build-$(basename "$consumer_source")/consumer" "$plugins")
echo "$output"
grep -qx 'header=Имя' <<<"$output" || { echo "FAIL: library texts not translated"; exit 1; }
"$root/usr/bin/ovt-demo" "$plugins" --quit-after 1500
echo "PASS"
