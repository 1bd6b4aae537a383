#!/bin/sh
# SPDX-License-Identifier: MIT
# bench/run.sh   measures everything, prints one table, and draws docs/speed.svg. What was measured is kept in
# build/bench/results (Google Benchmark's JSON) and, in short, in docs/speed.json.
set -eu
cd "$(dirname "$0")/.."
tools/need build valgrind bench
corpus=$(bench/corpus.sh)
programs=$(bench/build.sh)
results=build/bench/results
rm -rf "$results"
mkdir -p "$results"

# The best implementation of this machine does everything, the others what the table compares.
everything=.
stages='^corpus/(job|pass|lists|text|standard|tokens|libxml2|memcpy)$|^samples/job$|^cost/'
filter=$everything
# Other work on the machine comes and goes: the repetitions of a benchmark are spread over the whole run.
for scan in avx512 avx2 sse2 portable; do
  status=0
  PAGESLICE_SCAN=$scan "$programs/pageslice_bench" "$corpus" samples --benchmark_filter="$filter" \
    --benchmark_min_time=0.2 --benchmark_repetitions=5 --benchmark_report_aggregates_only=true \
    --benchmark_enable_random_interleaving=true \
    --benchmark_out="$results/$scan.json" >"$results/$scan.log" 2>&1 || status=$?
  case $status in
    0) filter=$stages ;;
    3) rm -f "$results/$scan.json" ;; # not on this processor
    *) cat "$results/$scan.log" >&2; exit "$status" ;;
  esac
done
bench/guard.py "$programs/pageslice_job" --on "$corpus" >"$results/instructions.json"
bench/costs.py "$programs/pageslice_bench" samples >"$results/costs.json"
bench/report.py "$results" docs
