#!/usr/bin/env bash
# SPDX-FileCopyrightText: 2026 The ovt-common developers
# SPDX-License-Identifier: LGPL-2.1-or-later
# Builds the library and its tests with sanitizers and runs them.
#   scripts/sanitize.sh address [ctest args...]   address + undefined behaviour, every test
#   scripts/sanitize.sh thread  [ctest args...]   ThreadSanitizer, the task tests by default
# Builds go to build-address/ or build-thread/ beside the ordinary build.
set -euo pipefail
cd "$(dirname "$0")/.."
kind=${1:?usage: scripts/sanitize.sh address|thread [ctest args...]}
shift

scripts/install-deps.sh
build=$PWD/build-$kind
# shellcheck disable=SC2086
cmake -S . -B "$build" -G Ninja -DCMAKE_BUILD_TYPE=RelWithDebInfo -DOVT_SANITIZE="$kind" \
    -DOVT_BUILD_BENCHMARKS=OFF -DOVT_TRANSLATIONS_DIR="$build/translations" ${OVT_CMAKE_ARGS:-}

supp=$PWD/sanitizers
case $kind in
address)
    # Qt is built without frame pointers: only the slow unwinder sees far enough up a stack
    # for the suppressions to recognise Qt's own start-up allocations.
    export ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:malloc_context_size=8:strict_string_checks=1
    export LSAN_OPTIONS=suppressions=$supp/lsan.supp:fast_unwind_on_malloc=0:malloc_context_size=8:print_suppressions=0
    export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
    ;;
thread)
    export TSAN_OPTIONS=suppressions=$supp/tsan.supp:halt_on_error=1:second_deadlock_stack=1
    [ $# -eq 0 ] && set -- -L task
    ;;
*)
    echo "sanitize: unknown kind '$kind' (address or thread)" >&2
    exit 2
    ;;
esac
cd "$build"
if [ "$kind" = thread ]; then
    # Only the executables of the tests that run: a test's name is its target's name, except
    # for tests that run another test's executable again (tst_dummytasks runs tst_taskkinds,
    # whose own test is in the same label).
    known=$(ninja -t targets all | sed 's/:.*//')
    mapfile -t targets < <(ctest -N "$@" | sed -n 's/^ *Test *#[0-9]*: //p' |
        grep -Fxf <(printf '%s\n' "$known"))
    cmake --build . -j2 --target "${targets[@]}"
else
    cmake --build . -j2
fi
ctest --output-on-failure -j2 "$@"
