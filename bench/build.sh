#!/bin/sh
# SPDX-License-Identifier: MIT
# bench/build.sh   builds the benchmarks as the library is released, and prints the folder of the programs.
set -eu
cd "$(dirname "$0")/.."
tools/quietly cmake -S . -B build/bench -G Ninja -DCMAKE_BUILD_TYPE=Release -DPAGESLICE_BUILD_BENCH=ON \
  -DPAGESLICE_BUILD_TESTS=OFF -DPAGESLICE_BUILD_PROGRAM=OFF -DPAGESLICE_BUILD_EXAMPLES=OFF -DPAGESLICE_INSTALL=OFF
tools/quietly cmake --build build/bench
echo "$PWD/build/bench/bin"
