#!/bin/sh
# ./try.sh [FILE...]   builds the program pageslice and runs it, on a sample page when no file is named.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
[ $# -gt 0 ] || set -- "$here/samples/tour.html"

(
  cd "$here"
  tools/need build test
  tools/quietly cmake --preset release
  tools/quietly cmake --build --preset release --target pageslice_program
)
exec "$here/build/release/bin/pageslice" "$@"
