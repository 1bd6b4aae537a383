#!/bin/sh
# SPDX-License-Identifier: MIT
# Builds the fuzz targets as public fuzzing services ask for it: with the compiler and the flags of CXX and CXXFLAGS and
# the engine LIB_FUZZING_ENGINE, from any folder, into the folder OUT; beside each target its stored inputs, its
# dictionary and its options. To try it:
#   OUT=/tmp/out LIB_FUZZING_ENGINE=-fsanitize=fuzzer CXX=clang++-14 CXXFLAGS=-fsanitize=address,fuzzer-no-link fuzz/build.sh
set -eu
: "${OUT:?is where the targets go}" "${LIB_FUZZING_ENGINE:?is what links them}"
root=$(cd "$(dirname "$0")/.." && pwd)
build=${WORK:-$OUT}/build
program=OFF # one target prints what the program prints, and needs what that is built with
! [ -f /usr/include/CLI/CLI.hpp ] || ! [ -f /usr/include/nlohmann/json.hpp ] || program=ON
cmake -S "$root" -B "$build" -DCMAKE_BUILD_TYPE=None -DPAGESLICE_BUILD_FUZZ=ON "-DPAGESLICE_FUZZ_ENGINE=$LIB_FUZZING_ENGINE" \
  -DPAGESLICE_BUILD_PROGRAM=$program -DPAGESLICE_BUILD_SHARED=OFF -DPAGESLICE_BUILD_TESTS=OFF \
  -DPAGESLICE_BUILD_EXAMPLES=OFF -DPAGESLICE_INSTALL=OFF
cmake --build "$build" --parallel "$(nproc)"
mkdir -p "$OUT"
for target in "$build"/bin/fuzz_*; do
  name=$(basename "$target")
  cp "$target" "$OUT"
  cp "$root/fuzz/html.dict" "$OUT/$name.dict"
  printf '[libfuzzer]\nmax_len = 20000\n' >"$OUT/$name.options"
  python3 -m zipfile -c "$OUT/${name}_seed_corpus.zip" "$root/fuzz/corpus/$name"/*
done
