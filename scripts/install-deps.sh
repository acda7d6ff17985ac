#!/usr/bin/env bash
# Installs the Debian packages the build needs, when any is missing.
set -euo pipefail
packages=(cmake g++ make clang libclang-rt-14-dev libxerces-c-dev libicu-dev libgtest-dev libbenchmark-dev libcli11-dev nlohmann-json3-dev libvalijson-dev chromium fonts-ipafont-gothic)
missing=()
for package in "${packages[@]}"; do
  dpkg -s "$package" >/dev/null 2>&1 || missing+=("$package")
done
if ((${#missing[@]})); then
  echo "Installing: ${missing[*]}"
  apt-get update -qq
  DEBIAN_FRONTEND=noninteractive apt-get install -y -qq "${missing[@]}" >/dev/null
fi
