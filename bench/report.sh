#!/usr/bin/env bash
# Builds the benchmarks, runs all of them and writes docs/performance.md: report.sh [REPETITIONS]
# Takes about ten minutes. The figures are ratios of medians from one run on one machine.
set -euo pipefail
cd "$(dirname "$0")/.."

repetitions=${1:-5}
build=build/bench
cmake --preset bench >/dev/null
cmake --build --preset bench -j "$(nproc)"

results=$build/results
rm -rf "$results"
mkdir -p "$results"
export TESSARA_IMPORT_FILE=$results/import.txt # bench_import reads it too
/usr/bin/python3 bench/import_pandas.py "$TESSARA_IMPORT_FILE" "$results/import_pandas.json" "$repetitions"
for program in "$build"/bench/bench_*; do
    [[ -x $program && -f $program ]] || continue
    echo "Running $(basename "$program")"
    "$program" --benchmark_repetitions="$repetitions" --benchmark_report_aggregates_only=true \
        --benchmark_min_time=0.2 --benchmark_format=console --benchmark_out_format=json \
        --benchmark_out="$results/$(basename "$program").json" >/dev/null
done
python3 bench/report.py "$results" docs/performance.md
