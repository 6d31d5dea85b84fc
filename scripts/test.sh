#!/usr/bin/env bash
# Builds everything (Release) and runs every test; exits non-zero on any
# failure. Then builds the unit and integration tests again with
# AddressSanitizer and UndefinedBehaviorSanitizer into build-sanitize and runs
# them (set PANEL_SANITIZE=0 to skip that second stage). Arguments go to both
# ctest runs.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
jobs=${JOBS:-$(nproc)}
export QT_QPA_PLATFORM=offscreen

BUILD_DIR=$build bash "$root/scripts/build.sh"
(cd "$build" && ctest --output-on-failure -j "$jobs" "$@")

if [ "${PANEL_SANITIZE:-1}" != 0 ]; then
  sanitize=${SANITIZE_BUILD_DIR:-$root/build-sanitize}
  # Leaks of Qt's own singletons at exit are not ours; everything else fails.
  export ASAN_OPTIONS=detect_leaks=0:abort_on_error=1
  export UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1
  BUILD_DIR=$sanitize BUILD_TYPE=Debug \
    CMAKE_ARGS="-DPANEL_SANITIZE=ON -DPANEL_BUILD_BENCH=OFF -DPANEL_BUILD_E2E=OFF" \
    bash "$root/scripts/build.sh" panel_unit_tests
  (cd "$sanitize" && ctest --output-on-failure -j "$jobs" -LE install "$@")
fi
