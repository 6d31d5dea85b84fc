#!/usr/bin/env bash
# Installs every Debian package the panel, its simulator, tests and benchmarks need.
# Safe to run again: when everything is present it returns without touching apt.
set -euo pipefail

packages=(
  build-essential cmake pkg-config g++ clang-format
  qtbase5-dev qtbase5-dev-tools libqt5svg5-dev
  libzmq3-dev cppzmq-dev nlohmann-json3-dev libqrencode-dev
  libgtest-dev googletest libbenchmark-dev
  xvfb x11-apps zbar-tools netcat-openbsd
  fonts-dejavu-core fonts-noto-cjk
)

missing=()
for p in "${packages[@]}"; do
  if ! dpkg-query -W -f='${Status}' "$p" 2>/dev/null | grep -q "install ok installed"; then
    missing+=("$p")
  fi
done

if [ ${#missing[@]} -eq 0 ]; then
  echo "setup: all ${#packages[@]} packages present"
  exit 0
fi

as_root=()
if [ "$(id -u)" -ne 0 ]; then
  command -v sudo >/dev/null || { echo "setup: need root or sudo to install: ${missing[*]}" >&2; exit 1; }
  as_root=(sudo)
fi

echo "setup: installing ${missing[*]}"
export DEBIAN_FRONTEND=noninteractive
"${as_root[@]}" apt-get update -q
"${as_root[@]}" apt-get install -y -q --no-install-recommends "${missing[@]}"
echo "setup: done"
