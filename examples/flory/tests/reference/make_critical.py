"""Writes critical.json: critical end points, tricritical points, and corners of cloud-point curves, each proven.

    apt-get install python3-gmpy2
    /usr/bin/python3 make_critical.py [FILE]      about 5 minutes

The file has three lists. A critical end point is a sample at its critical phi and chi, and the third phase at the same
plane. A tricritical point is a sample with its phi and chi. A cloud-point curve has the critical point, the cusps,
which are metastable, and the points at which the sample coexists with two others, `stable` when nothing lies lower.
"""

import json
import pathlib
import sys

from critical import CloudCurve, Family, tricritical_mixture, tricritical_ratio
from plane import Sample

END_POINTS = [  # lengths, and the proportions of all but the last
    ([1.0, 14.0], [1.0]),
    ([1.0, 20.0], [1.0]),
    ([3.0, 75.0], [1.0]),
    ([10.0, 110.0], [1.0]),
    ([16.079, 639.96], [1.0]),
    ([60.5, 2280.0], [1.0]),
    ([100.0, 1060.0], [1.0]),
    ([100.0, 1100.0], [1.0]),
    ([100.0, 3000.0], [1.0]),
    ([250.0, 5000.0], [1.0]),
    ([1000.0, 10500.0], [1.0]),
    ([1000.0, 60000.0], [1.0]),
    ([20.0, 100.0, 2000.0], [0.9, 0.1]),
    ([50.0, 400.0, 4000.0], [0.95, 0.05]),
    ([100.0, 1000.0, 20000.0], [0.97, 0.03]),
    ([100.0, 3000.0, 90000.0], [0.9, 0.1]),
]
SHORTEST = [1.0, 2.5, 10.0, 60.5, 100.0, 1000.0, 30000.0]
MIXTURES = [[10.0, 60.0, 300.0], [100.0, 400.0, 2000.0], [1.0, 6.0, 40.0]]
CLOUD_CURVES = [
    ([60.5, 2280.0], [0.99935, 0.00065]),
    ([16.079, 639.96], [0.9996744, 3.256e-4]),
    ([100.0, 3000.0], [0.9, 0.1]),
    ([100.0, 3000.0], [0.99, 0.01]),
    ([100.0, 900.0], [0.99, 0.01]),
    ([3.0, 75.0], [0.995, 0.005]),
    ([1000.0, 20000.0], [0.97, 0.03]),
    ([10.0, 100.0, 1000.0], [0.9, 0.09, 0.01]),
    ([50.0, 1500.0, 45000.0], [0.99, 0.0098, 0.0002]),
    ([20.0, 80.0, 400.0, 2000.0, 10000.0], [0.5, 0.4, 0.0989, 0.001, 0.0001]),
]


def saved(path, result, part, records):
    result[part] += records
    lists = (f'"{name}": [\n' + ",\n".join(map(json.dumps, records)) + "\n]" for name, records in result.items())
    pathlib.Path(path).write_text("{" + ",\n".join(lists) + "}\n")
    print(part, records, flush=True)


def main(path):
    result = {"critical_end_points": [], "tricritical_points": [], "cloud_curves": []}
    for lengths, others in END_POINTS:
        saved(path, result, "critical_end_points", Family(lengths, others).end_points())
    for shortest in SHORTEST:
        saved(path, result, "tricritical_points", [tricritical_ratio(shortest)])
    for lengths in MIXTURES:
        saved(path, result, "tricritical_points", [tricritical_mixture(lengths)])
    for lengths, weights in CLOUD_CURVES:
        saved(path, result, "cloud_curves", [CloudCurve(Sample(lengths, weights)).record()])


if __name__ == "__main__":
    main(sys.argv[1] if len(sys.argv) > 1 else pathlib.Path(__file__).with_name("critical.json"))
