#!/usr/bin/env bash
# Installs what is missing, builds the library and the tool, and checks the
# bundled example folder of financial statements.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/build.sh
"${QZC_BUILD_DIR:-build}/bin/qzcsvconv" "$@" xbrl examples/financial-statements 3.0
