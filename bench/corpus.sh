#!/bin/sh
# SPDX-License-Identifier: MIT
# bench/corpus.sh   fetches the pages that the benchmarks read, once, and prints the folder that holds them. They belong
# to the npm package htmlparser-benchmark and are no part of this project.
set -eu
cd "$(dirname "$0")/.."
folder=build/corpus
version=1.1.3
pages=258

if [ ! -d "$folder" ]; then
  mkdir -p build
  work=$(mktemp -d build/corpus.XXXXXX)
  trap 'rm -rf "$work"' EXIT
  (cd "$work" && npm pack --silent "htmlparser-benchmark@$version" >/dev/null && tar xf ./*.tgz)
  found=$(find "$work/package/files" -name '*.html' | wc -l)
  if [ "$found" != "$pages" ]; then
    echo "corpus.sh: $found pages instead of $pages" >&2
    exit 1
  fi
  mv "$work/package/files" "$folder"
fi
echo "$PWD/$folder"
