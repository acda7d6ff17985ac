#!/usr/bin/env bash
# Installs what is missing, builds, and runs every test through CTest.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh
ctest --test-dir "${QZC_BUILD_DIR:-build}" --output-on-failure -j"$(nproc)"
