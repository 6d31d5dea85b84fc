#!/usr/bin/env bash
# Builds everything and runs every test; exits non-zero on any failure.
set -euo pipefail
root=$(cd "$(dirname "$0")/.." && pwd)
build=${BUILD_DIR:-$root/build}
bash "$root/scripts/build.sh"
cd "$build"
QT_QPA_PLATFORM=offscreen ctest --output-on-failure -j "${JOBS:-$(nproc)}" "$@"
