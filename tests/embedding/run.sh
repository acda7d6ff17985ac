#!/usr/bin/env bash
# Steps of the tests of the library as other programs use it:
#   run.sh install BUILD PREFIX           install the build into PREFIX (emptied first)
#   run.sh cmake-consumer SOURCE PREFIX   build a C++ program with find_package() and run it
#   run.sh c-program SOURCE PREFIX        compile the C test as C with pkg-config and run it
#   run.sh exports SOURCE PREFIX          the library exports its interface and nothing else
#   run.sh tool SOURCE PREFIX             the installed tool finds the installed bundle
#   run.sh subproject SOURCE SCRATCH [COMPILER_LAUNCHER]
#                                         build the library inside another project
# QZC_LIBDIR and QZC_BINDIR are the installation's library and program folders.
set -euo pipefail
step=$1
source=$2
dir=$3
example=$source/examples/financial-statements

case $step in
install)
  rm -rf "$dir"
  cmake --install "$2" --prefix "$dir" >/dev/null
  ;;
cmake-consumer)
  cmake -S "$source/tests/embedding/consumer" -B "$dir/consumer" -DCMAKE_PREFIX_PATH="$dir" >/dev/null
  cmake --build "$dir/consumer" >/dev/null
  "$dir/consumer/consumer" "$example" 3.0 | grep -qx "S_OK 4"
  ;;
c-program)
  export PKG_CONFIG_PATH=$dir/$QZC_LIBDIR/pkgconfig
  mkdir -p "$dir/c-program"
  # shellcheck disable=SC2046
  cc -std=c99 -pedantic -Wall -Wextra -Werror "$source/tests/embedding/c_interface_test.c" -o "$dir/c-program/test" \
    $(pkg-config --cflags --libs QZCsvConvXml) -Wl,-rpath,"$dir/$QZC_LIBDIR"
  env -u QZCSVCONVXML_BUNDLE "$dir/c-program/test" "$source/examples" "$dir/c-program"
  ;;
exports)
  # Demangled names of every defined dynamic symbol, less those of the
  # interface: the QZI classes, the C functions and the exported constants.
  others=$(nm -D --defined-only -C "$dir/$QZC_LIBDIR/libQZCsvConvXml.so" | cut -d' ' -f3- |
    grep -Ev '^(QZI|typeinfo (name )?for QZI|qzc_|(PROCESS_OK|PROCESS_FAIL|EMPTY_CONST_CHAR)$|QZCsvConvXmlVersion)' ||
    true)
  if [[ -n $others ]]; then
    echo "exported beside the interface:"
    echo "$others"
    exit 1
  fi
  ;;
tool)
  env -u QZCSVCONVXML_BUNDLE "$dir/$QZC_BINDIR/qzcsvconv" --json xbrl "$example" 3.0 | grep -q '"Result": "S_OK"'
  ;;
subproject)
  cmake -S "$source/tests/embedding/subproject" -B "$dir" -DQZC_SOURCE="$source" \
    -DCMAKE_CXX_COMPILER_LAUNCHER="${4:-}" >/dev/null
  cmake --build "$dir" --target consumer -j2 >/dev/null
  env -u QZCSVCONVXML_BUNDLE "$dir/consumer" "$example" 3.0 | grep -qx "S_OK 4"
  ;;
*)
  echo "unknown step $step" >&2
  exit 2
  ;;
esac
echo "$step: passed"
