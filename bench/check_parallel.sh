#!/usr/bin/env bash
# Speed-up of `qzcsvconv check` with its worker processes: the bundled
# examples copied COPIES times (default 10) into a temporary folder and
# checked with -j 1, -j 2 and -j <all cores>, best of three runs each.
#   bench/check_parallel.sh [COPIES]    (QZC_TOOL: the tool, default build-bench/bin/qzcsvconv)
set -euo pipefail
cd "$(dirname "$0")/.."
tool=${QZC_TOOL:-build-bench/bin/qzcsvconv}
copies=${1:-10}
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
for ((i = 1; i <= copies; i++)); do
  mkdir "$work/$i"
  cp -r examples/detail examples/financial-statements examples/financial-statements-with-errors "$work/$i/"
done
export QZCSVCONVXML_BUNDLE=$PWD/resources/QZCsvConvXml.bundle
inputs=$({ "$tool" --json check "$work" || true; } | sed -n 's/^ *"Inputs": \([0-9]*\).*/\1/p')

best() {
  local best=
  for _ in 1 2 3; do
    local start end took
    start=$(date +%s.%N)
    "$tool" --json check -j "$1" "$work" >/dev/null || true
    end=$(date +%s.%N)
    took=$(awk -v a="$start" -v b="$end" 'BEGIN { print b - a }')
    best=$(awk -v t="$took" -v b="$best" 'BEGIN { print (b == "" || t < b) ? t : b }')
  done
  echo "$best"
}

cores=$(nproc)
one=$(best 1)
printf 'check of %s inputs (%s copies of the examples), %s cores, best of 3\n' "$inputs" "$copies" "$cores"
printf '%-6s %9s %9s\n' jobs seconds speed-up
for jobs in $(printf "%s\n" 1 2 "$cores" | uniq); do
  if [[ $jobs == 1 ]]; then took=$one; else took=$(best "$jobs"); fi
  printf '%-6s %9.2f %8.2fx\n' "$jobs" "$took" "$(awk -v a="$one" -v b="$took" 'BEGIN { print a / b }')"
done
