#!/usr/bin/env bash
# Configures and builds the project into ./build (or $BUILD_DIR).
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
jobs=${JOBS:-$(nproc)}
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=${BUILD_TYPE:-RelWithDebInfo} ${CMAKE_ARGS:-} >/dev/null
cmake --build "$build" -j "$jobs"
