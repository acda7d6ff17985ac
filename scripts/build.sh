#!/usr/bin/env bash
# Installs what is missing and builds the given targets, or everything, into
# ${QZC_BUILD_DIR:-build}. Extra CMake arguments come from QZC_CMAKE_ARGS.
#   scripts/build.sh [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
build=${QZC_BUILD_DIR:-build}
# shellcheck disable=SC2086
cmake -S . -B "$build" -DCMAKE_BUILD_TYPE="${QZC_BUILD_TYPE:-RelWithDebInfo}" ${QZC_CMAKE_ARGS:-} >/dev/null
targets=()
for target in "$@"; do
  targets+=(--target "$target")
done
cmake --build "$build" -j"$(nproc)" "${targets[@]}"
