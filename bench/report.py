#!/usr/bin/env python3
"""Pairs the benchmarks <work>/tessara with <work>/<peer> and writes a page: report.py RESULTS PAGE

RESULTS is a folder of JSON files of Google Benchmark with medians. The best peer of each work counts. What the
page says beside the figures is bench/performance-notes.md.
"""
import json
import pathlib
import platform
import subprocess
import sys

# Work, what it is, and the ratio to reach where there is one.
WORKS = [
    ("SplineBuild", "spline build, 1e6 knots, all coefficients", 1.0),
    ("MultiSplineBuild", "multi-spline build, 16 columns of 1e5 knots", 0.40),
    ("SplineValue", "spline value, random x, 1e3 knots", 0.35),
    ("SortedBatch", "sorted batch of 1e6 values, 1e6 knots", 0.60),
    ("RandomBatch", "random batch of 1e6 values, 1e6 knots", 0.25),
    ("CurveValue1e2", "curve value, random x, 1e2 points", 0.35),
    ("CurveValue1e3", "curve value, random x, 1e3 points", 0.35),
    ("CurveValue1e5", "curve value, random x, 1e5 points", 0.35),
    ("SelfCrossingsLoop", "self-crossings of a smooth loop, 1e5 segments", 0.25),
    ("SelfCrossingsTenLoops", "self-crossings of ten smooth loops, 1e4 segments each", 0.25),
    ("SelfCrossingsWalk1e4", "self-crossings of a random walk, 1e4 segments", 0.45),
    ("SelfCrossingsWalk1e5", "self-crossings of a random walk, 1e5 segments", 0.45),
    ("SelfCrossingsWalk1e6", "self-crossings of a random walk, 1e6 segments", 0.45),
    ("CrossingsSpirals", "crossings of two spirals, 1e5 segments each", 0.30),
    ("CrossingsLoops", "crossings of two smooth loops, 1e5 segments each", 0.20),
    ("CrossingsWalks", "crossings of two random walks, 1e5 segments each", 0.55),
    ("DiagramSmooth", "repainting three curves of 1e6 points, smooth", 0.60),
    ("DiagramNoisy", "repainting three curves of 1e6 points, noisy", 0.60),
    ("UnannouncedDiagramSmooth", "repainting them when changes are not announced, smooth", None),
    ("UnannouncedDiagramNoisy", "repainting them when changes are not announced, noisy", None),
    ("NewDiagramSmooth", "painting them with new data, smooth", None),
    ("NewDiagramNoisy", "painting them with new data, noisy", None),
    ("ArchiveListing", "listing 10,000 variants of an archive", 1.2),
    ("TextImport", "importing a text file of 1e6 lines through its dialog", 1.0),
]
# Answer, what it is, the milliseconds to keep to, and the replot of the peer beside it.
ANSWERS = [
    ("CurveMoveSmooth", "curve plot, smooth: pointer moves", 16, "ReplotSmooth"),
    ("CurveMoveNoisy", "curve plot, noisy: pointer moves", 16, "ReplotNoisy"),
    ("CurveReadOutSmooth", "curve plot, smooth: pointer moves and is read out", 16, "ReplotSmooth"),
    ("CurveReadOutNoisy", "curve plot, noisy: pointer moves and is read out", 16, "ReplotNoisy"),
    ("CurveZoomSmooth", "curve plot, smooth: wheel zooms", 50, "ReplotZoomSmooth"),
    ("CurveZoomNoisy", "curve plot, noisy: wheel zooms", 50, "ReplotZoomNoisy"),
    ("DiagramMoveSmooth", "phase diagram, smooth: pointer moves", 16, "ReplotSmooth"),
    ("DiagramMoveNoisy", "phase diagram, noisy: pointer moves", 16, "ReplotNoisy"),
    ("DiagramReadOutSmooth", "phase diagram, smooth: pointer moves and is read out", 16, "ReplotSmooth"),
    ("DiagramReadOutNoisy", "phase diagram, noisy: pointer moves and is read out", 16, "ReplotNoisy"),
    ("DiagramZoomSmooth", "phase diagram, smooth: wheel zooms", 50, "ReplotZoomSmooth"),
    ("DiagramZoomNoisy", "phase diagram, noisy: wheel zooms", 50, "ReplotZoomNoisy"),
]
GROWTH = "SelfCrossingsGrowth"
GROWTH_LIMIT = 1.3
MICROSECONDS = {"ns": 1e-3, "us": 1.0, "ms": 1e3, "s": 1e6}


def read_times(folder, aggregate="median"):
    """The median, or another aggregate, of the processor time in microseconds of every work and peer."""
    medians = {}
    for path in sorted(folder.glob("*.json")):
        for run in json.loads(path.read_text())["benchmarks"]:
            if run.get("aggregate_name") == aggregate:
                work, peer = run["run_name"].split("/")[:2]
                medians.setdefault(work, {})[peer] = run["cpu_time"] * MICROSECONDS[run["time_unit"]]
    return medians


def text_of_time(us):
    for limit, factor, unit in ((1e3, 1, "us"), (1e6, 1e3, "ms")):
        if us < limit:
            return f"{us / factor:.3g} {unit}"
    return f"{us / 1e6:.3g} s"


def ratio_row(name, target, times):
    own = times["tessara"]
    peers = {peer: time for peer, time in times.items() if peer != "tessara"}
    best = min(peers, key=peers.get)
    ratio = own / peers[best]
    verdict = "" if target is None else "yes" if ratio <= target else "**no**"
    others = ", ".join(f"{peer} {text_of_time(time)}" for peer, time in sorted(peers.items()) if peer != best)
    return (f"| {name} | {text_of_time(own)} | {best}, {text_of_time(peers[best])} | {ratio:.2f} | "
            f"{'' if target is None else f'{target:.2f}'} | {verdict} | {others} |")


def ratio_table(medians):
    rows = ["| work | Tessara | best peer | ratio | at most | reached | other peers |",
            "|---|---|---|---|---|---|---|"]
    known = {work: (name, target) for work, name, target in WORKS}
    answers = {work for work, _, _, _ in ANSWERS}
    order = [work for work, _, _ in WORKS] + sorted(set(medians) - set(known) - answers - {GROWTH})
    for work in order:
        if len(medians.get(work, {})) > 1 and "tessara" in medians[work]:
            name, target = known.get(work, (work, None))
            rows.append(ratio_row(name, target, medians[work]))
    return "\n".join(rows)


def answer_table(medians, longest):
    rows = ["| answer | median, ms | longest, ms | at most, ms | reached | QCustomPlot's replot, ms | ratio |",
            "|---|---|---|---|---|---|---|"]
    for work, name, limit, replot in ANSWERS:
        own, peer = (medians.get(of, {}).get(who) for of, who in ((work, "tessara"), (replot, "QCustomPlot")))
        if own is None or peer is None:
            continue
        verdict = "yes" if own <= limit * 1e3 else "**no**"
        rows.append(f"| {name} | {own / 1e3:.3g} | {longest[work]['tessara'] / 1e3:.3g} | {limit} | {verdict} | "
                    f"{peer / 1e3:.3g} | {own / peer:.2g} |")
    return "\n".join(rows)


def growth_table(times):
    rows = [f"| segments | time | beyond linear, per doubling (at most {GROWTH_LIMIT}) |", "|---|---|---|"]
    before = None
    for size, time in sorted((int(size), time) for size, time in times.items()):
        beyond = "" if before is None else f"{time / before[1] / (size / before[0]):.2f}"
        rows.append(f"| {size} | {text_of_time(time)} | {beyond} |")
        before = (size, time)
    return "\n".join(rows)


def machine():
    model = platform.machine()
    for line in pathlib.Path("/proc/cpuinfo").read_text().splitlines():
        if line.startswith("model name"):
            model = line.split(":", 1)[1].strip()
            break
    compiler = subprocess.run(["g++", "-dumpfullversion"], capture_output=True, text=True).stdout.strip()
    packages = ["libbenchmark-dev", "libgsl-dev", "libgeos++-dev", "libcgal-dev", "libboost-dev",
                "libqcustomplot-dev", "python3-pandas"]
    query = subprocess.run(["dpkg-query", "-W", "-f", "${Package} ${Version}\n", *packages], capture_output=True,
                           text=True)
    return "\n".join([f"- {model}, {platform.system()} {platform.release()}", f"- GCC {compiler}, build preset `bench`"] +
                     [f"- {line}" for line in query.stdout.splitlines()])


def main(results, page):
    medians = read_times(pathlib.Path(results))
    table = ratio_table(medians)
    answers = answer_table(medians, read_times(pathlib.Path(results), "max"))
    growth = growth_table(medians.get(GROWTH, {}))
    notes = pathlib.Path(__file__).with_name("performance-notes.md").read_text()
    pathlib.Path(page).write_text(f"""# Performance

Written by `bench/report.sh`. Times are medians of processor time, each work beside its peers in one program; the
ratio is that to the best peer. What counts is the ratio: times depend on the machine and on what else it does.

{table}

## Answers to the pointer and the wheel, 1e6 points

{answers}

## Growth: self-crossings of a smooth curve

{growth}

## Machine and versions

{machine()}

{notes}""")
    print(table, answers, growth, machine(), sep="\n\n")


if __name__ == "__main__":
    main(*sys.argv[1:])
