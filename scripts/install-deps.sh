#!/usr/bin/env bash
# Installs the Debian packages that the build, the tests, the benchmarks and
# the fuzz targets use, when any is missing, and shows apt's progress.
set -euo pipefail
packages=(
  cmake make g++ gcc pkg-config python3
  libxerces-c-dev libicu-dev
  libcli11-dev nlohmann-json3-dev
  libgtest-dev libbenchmark-dev libvalijson-dev
  clang libclang-rt-14-dev
  chromium fonts-ipafont-gothic
)
missing=()
for package in "${packages[@]}"; do
  dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
if ((${#missing[@]})); then
  echo "Installing ${#missing[@]} Debian packages: ${missing[*]}"
  apt-get update -q
  DEBIAN_FRONTEND=noninteractive apt-get install -y -q "${missing[@]}"
fi
