#!/usr/bin/env bash
# Measures the portable core beside its peers in one run and prints one table of ratios.
# Usage: ./bench.sh [FILTER]     FILTER is a regular expression on the names, such as tally
set -euo pipefail
cd "$(dirname "$0")"
tools/setup.sh --bench
mkdir -p build/logs
{ cmake --preset bench && cmake --build --preset bench; } >build/logs/bench.log 2>&1 || { tail -n 40 build/logs/bench.log; exit 1; }
build/bench/bench/zqvote_bench --benchmark_filter="${1:-.}" --benchmark_repetitions=9 \
  --benchmark_min_time=0.05 --benchmark_enable_random_interleaving=true --benchmark_format=json >build/logs/bench.json 2>/dev/null
python3 bench/table.py build/logs/bench.json
