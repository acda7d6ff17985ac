#!/usr/bin/env bash
# Builds the benchmarks in release mode and runs them all (or those whose
# program name matches $1).
set -euo pipefail
cd "$(dirname "$0")/.."
QZC_BUILD_DIR=build-bench QZC_BUILD_TYPE=Release QZC_CMAKE_ARGS="-DQZC_BUILD_BENCH=ON -DQZC_BUILD_TESTS=OFF" scripts/build.sh
for program in build-bench/bench/qzc_bench_* bench/check_parallel.sh; do
  if [[ -z "${1:-}" || "$program" == *"$1"* ]]; then "$program"; fi
done
