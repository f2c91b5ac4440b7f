"""Writes sections.json: borders in chi of named and of random samples, each state proven.

    apt-get install python3-gmpy2
    /usr/bin/python3 make_sections.py [FILE]      about 20 minutes

The file is a list of what equilibrium.section_record returns. Lengths, weights and phi0 are the doubles that a reader
of the file gets; weights are divided by their sum. Species whose fraction a double cannot hold are 0.
"""

import json
import math
import pathlib
import random
import sys
import time

from equilibrium import cloud_point, section_record
from plane import Sample, Unsolved, number

NAMED = [
    ([60.5, 2280.0], [0.99935, 0.00065], 0.0813),
    ([16.079, 639.96], [0.9996744, 3.256e-4], 0.13499),
    ([100.0, 3000.0], [0.9, 0.1], 0.12),
    # Near tricritical points: three phases that are nearly one, in a short interval.
    ([100.0, 1055.0], [0.9908, 0.0092], 0.111),
    ([100.0, 1060.0], [0.993, 0.007], 0.1077),
    ([100.0, 1100.0], [0.99, 0.01], 0.1112),
    ([1.0, 15.7], [0.995, 0.005], 0.572),
    # Near critical end points.
    ([100.0, 3000.0], [0.9606, 0.0394], 0.16133),
    ([100.0, 3000.0], [0.961, 0.039], 0.1609),
    # Near critical points, and far from them.
    ([100.0, 1000.0], [0.99, 0.01], 0.112053),
    ([3000.0, 3100.0], [0.5, 0.5], 0.01779),
    ([100.0, 3000.0], [0.9, 0.1], 1e-4),
    ([100.0, 3000.0], [0.9, 0.1], 0.8),
]
DRAWS = 3  # of phi0, until there are three phases


def log_uniform(source, low, high):
    return math.exp(source.uniform(math.log(low), math.log(high)))


def rounded(value, digits=5):
    return float(f"{value:.{digits}g}")


def critical_phi(lengths, weights):
    sample = Sample(lengths, weights)
    first, second = float(sample.moment(1)), float(sample.moment(2))
    return 1 / (1 + first / math.sqrt(second / first))


def two_lengths(source, shortest, longest):
    short = rounded(log_uniform(source, shortest, longest))
    ratio = log_uniform(source, 11, 60)
    weight = rounded(log_uniform(source, 3e-4, 0.13), 4)
    return [short, rounded(short * ratio)], [round(1 - weight, 12), weight]


def several_lengths(source):
    count = source.choice([3, 4, 5])
    lengths = [rounded(log_uniform(source, 5, 300))]
    while len(lengths) < count:
        lengths.append(rounded(lengths[-1] * log_uniform(source, 3, 25)))
    weights = [1.0]
    while len(weights) < count:
        weights.append(weights[-1] * log_uniform(source, 0.002, 0.3))
    weights = [rounded(weight / sum(weights), 4) for weight in weights]
    weights[0] = round(1 - sum(weights[1:]), 12)
    return lengths, weights


def drawn_record(source, lengths, weights):
    for _ in range(DRAWS):
        phi0 = rounded(min(critical_phi(lengths, weights) * log_uniform(source, 0.4, 1.2), 0.9), 4)
        record = record_of(lengths, weights, phi0)
        if max(record["counts"]) > 2:
            break
    return record


def record_of(lengths, weights, phi0):
    cloud = float(cloud_point(Sample(lengths, weights), number(phi0)).chi)
    return section_record(lengths, weights, phi0, rounded(1.3 * cloud, 4))


def jobs():
    source = random.Random(2)
    for sample in NAMED:
        yield lambda sample=sample: record_of(*sample)
    groups = [(60, lambda: two_lengths(source, 10, 1000)), (15, lambda: two_lengths(source, 1, 8)),
              (20, lambda: several_lengths(source))]
    for count, sample in groups:
        for _ in range(count):
            yield lambda sample=sample: drawn_record(source, *sample())


def main(path):
    records = []
    for job in jobs():
        start = time.process_time()
        try:
            record = job()
        except Unsolved as error:
            print("unsolved:", error, flush=True)
            continue
        records.append(record)
        pathlib.Path(path).write_text("[\n" + ",\n".join(json.dumps(one) for one in records) + "\n]\n")
        print(len(records), record["r"], record["w"], record["phi0"], record["counts"],
              [border["chi"] for border in record["borders"]], f"{time.process_time() - start:.1f} s", flush=True)


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).with_name("sections.json"))
