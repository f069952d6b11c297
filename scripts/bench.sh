#!/usr/bin/env bash
# Builds the optimised tree and runs the benchmarks; arguments go to the benchmark
# program (for example --benchmark_filter=Typical). Figures: bench/README.md.
set -euo pipefail
cd "$(dirname "$0")/.."
cmake --preset release >/dev/null
cmake --build --preset release --target tervan_bench
exec build/release/bin/tervan_bench --benchmark_repetitions=5 --benchmark_report_aggregates_only=true "$@"
