#!/usr/bin/env bash
# Installs what is missing, builds the library and the tool (not the tests),
# and checks the bundled example folder of financial statements.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh qzcsvconv
"${QZC_BUILD_DIR:-build}/bin/qzcsvconv" "$@" xbrl examples/financial-statements 3.0
