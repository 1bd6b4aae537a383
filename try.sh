#!/bin/sh
# SPDX-License-Identifier: MIT
# ./try.sh [ARGUMENT...]   builds the program pageslice and runs it with these arguments, or on a sample page without any.
# ./try.sh --help          says this. The program's own help: ./try.sh -- --help
#
# It builds in build/release, or in PAGESLICE_BUILD_DIR/release where that is set, and takes any C++17 compiler that is there
# (CXX names one), CMake and Ninja. No package of the tests is needed.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
build=${PAGESLICE_BUILD_DIR:-$here/build}

step() { echo "try.sh: $*" >&2; }

case ${1-} in
  -h | --help) sed -n '/^# \.\//,/^[^#]/s/^# \{0,1\}//p' "$0"; exit ;;
  --) shift ;;
  '') set -- "$here/samples/tour.html" ;;
esac
if ! mkdir -p "$build" 2>/dev/null || [ ! -w "$build" ]; then
  step "$build cannot be written; name another folder: PAGESLICE_BUILD_DIR=/tmp/pageslice ./try.sh"
  exit 1
fi
build=$(cd "$build" && pwd)/release
if [ -z "${CXX-}" ] && ! command -v c++ >/dev/null && ! command -v g++ >/dev/null && ! command -v clang++ >/dev/null &&
  command -v clang++-14 >/dev/null; then
  export CXX=clang++-14 # Debian's name for it, which CMake does not look for
fi

step "looking for compiler, CMake, Ninja and the program's header library"
"$here/tools/need" program >&2
step "configuring $build"
(cd "$here" && tools/quietly cmake --preset release -B "$build" -D PAGESLICE_BUILD_TESTS=OFF)
step "building the program, which takes about a minute the first time"
"$here/tools/quietly" cmake --build "$build" --target pageslice_program
step "running $build/bin/pageslice $*"
exec "$build/bin/pageslice" "$@"
