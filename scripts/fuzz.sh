#!/usr/bin/env bash
# Builds the fuzz targets with clang and the sanitizers in build-fuzz/ and runs
# each for SECONDS (default 45) on a scratch copy of its seed corpus. A crash,
# a timeout (1 s per input) or running out of memory (2 GB) fails the run; the
# input that did it is kept in build-fuzz/artifacts/.
#   scripts/fuzz.sh [SECONDS] [TARGET...]
set -euo pipefail
cd "$(dirname "$0")/.."
root=$PWD
seconds=${1:-45}
shift || true
build=${QZC_FUZZ_BUILD_DIR:-build-fuzz}

bash scripts/install-deps.sh
cmake -S . -B "$build" -DCMAKE_CXX_COMPILER=clang++ -DCMAKE_BUILD_TYPE=RelWithDebInfo \
  -DQZC_FUZZ=ON -DQZC_BUILD_TESTS=OFF >/dev/null
cmake --build "$build" -j2

# Target and the dictionary of its format.
declare -A dictionary=(
  [detail_csv]=csv [detail_light]=csv [statements_csv]=csv [statements_folder]=csv
  [definition]=xml [settings]=ini [sjis]=sjis [csv_write]=sjis [normalize]=normalize
  [detail_forms]=csv [report]=csv [arguments]=csv [code_list]=csv [definition_check]=xml)
targets=("$@")
((${#targets[@]})) || targets=(detail_csv detail_light statements_csv statements_folder definition settings sjis csv_write
  normalize detail_forms report arguments code_list definition_check)

# Scratch files in memory where possible: the write target syncs every file
# it writes, which on a disk costs more than the rest of an execution.
if [[ -z ${TMPDIR:-} && -d /dev/shm && -w /dev/shm ]]; then
  export TMPDIR=/dev/shm
fi
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
mkdir -p "$build/artifacts"
failed=()
for target in "${targets[@]}"; do
  corpus=$scratch/$target
  mkdir "$corpus"
  cp fuzz/corpus/"$target"/* "$corpus"/
  log=$build/artifacts/$target.log
  if (cd "$scratch" && "$root/$build/fuzz/fuzz_$target" "$corpus" -max_total_time="$seconds" -timeout=1 \
        -rss_limit_mb=2048 -dict="$root/fuzz/dict/${dictionary[$target]}.dict" -print_final_stats=1 \
        -artifact_prefix="$root/$build/artifacts/$target-") >"$log" 2>&1; then
    runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
    cov=$(grep -o 'cov: [0-9]*' "$log" | tail -1)
    echo "fuzz_$target: $runs runs, $cov"
  else
    failed+=("$target")
    echo "fuzz_$target FAILED:"
    grep -E 'ERROR|SUMMARY|Test unit written|==[0-9]+==' "$log" | head -20 || tail -20 "$log"
  fi
done
if ((${#failed[@]})); then
  echo "Failed: ${failed[*]} (logs and inputs in $build/artifacts/)"
  exit 1
fi
