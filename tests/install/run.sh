#!/usr/bin/env bash
# Installs the build into a temporary prefix, then builds a small program
# against it twice (CMake package, pkg-config) and runs both on the example.
set -euo pipefail
build=$1
source=$2
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT

cmake --install "$build" --prefix "$prefix" >/dev/null
test -x "$prefix/bin/qzcsvconv"
test -f "$prefix/share/QZCsvConvXml/QZCsvConvXml.bundle/Xbrl/V3.0/QZFylaCSVConv.ini"

cmake -S "$source/tests/install/consumer" -B "$prefix/consumer" -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
cmake --build "$prefix/consumer" >/dev/null
"$prefix/consumer/consumer" "$source/examples/financial-statements" 3.0 | grep -qx "S_OK 4"

export PKG_CONFIG_PATH="$prefix/lib/pkgconfig"
# shellcheck disable=SC2046
g++ -std=c++17 "$source/tests/install/consumer/main.cpp" -o "$prefix/consumer-pc" \
    $(pkg-config --cflags --libs QZCsvConvXml) -Wl,-rpath,"$prefix/lib"
"$prefix/consumer-pc" "$source/examples/financial-statements" 3.0 | grep -qx "S_OK 4"

# The installed tool finds the installed bundle by itself.
env -u QZCSVCONVXML_BUNDLE "$prefix/bin/qzcsvconv" --json xbrl "$source/examples/financial-statements" 3.0 >/dev/null
echo "install consumer: passed"
