#!/usr/bin/env bash
# Installs what is missing, builds the library and runs it on the bundled example.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh
echo "Built ${QZC_BUILD_DIR:-build}/lib/libQZCsvConvXml.so with its resource bundle."
