#!/usr/bin/env python3
"""Writes the file for the import of text, and times pandas.read_csv on it: import_pandas.py FILE RESULT [REPETITIONS]

FILE gets a million lines, x, a tab and y; bench_import reads it too. RESULT is written as Google Benchmark would, so
that report.py finds the peer. Times are of the processor, as there.
"""
import json
import statistics
import sys
import time

import pandas

LINES = 1_000_000


def write_sample(path):
    with open(path, "w", encoding="ascii") as file:
        file.writelines(f"{i * 0.001:.3f}\t{0.01 + 1.49 * i / LINES:.9f}\n" for i in range(LINES))


def time_read(path):
    begin = time.process_time()
    table = pandas.read_csv(path, sep="\t", header=None)
    elapsed = time.process_time() - begin
    assert table.shape == (LINES, 2)
    return elapsed * 1e3


def main(path, result, repetitions="5"):
    write_sample(path)
    time_read(path)  # the first reading brings the file into the memory
    times = [time_read(path) for _ in range(int(repetitions))]
    run = {"run_name": "TextImport/pandas", "time_unit": "ms"}
    with open(result, "w", encoding="ascii") as file:
        json.dump({"benchmarks": [{**run, "aggregate_name": "median", "cpu_time": statistics.median(times)},
                                  {**run, "aggregate_name": "max", "cpu_time": max(times)}]}, file)
    print(f"TextImport/pandas {statistics.median(times):.0f} ms")


if __name__ == "__main__":
    main(*sys.argv[1:])
