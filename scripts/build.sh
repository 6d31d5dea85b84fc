#!/usr/bin/env bash
# Configures and builds the project into ./build (or $BUILD_DIR).
# Arguments, if any, are the targets to build; none builds everything.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
jobs=${JOBS:-$(nproc)}
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE="${BUILD_TYPE:-Release}" ${CMAKE_ARGS:-} >/dev/null
targets=()
for t in "$@"; do targets+=(--target "$t"); done
cmake --build "$build" -j "$jobs" "${targets[@]}"
