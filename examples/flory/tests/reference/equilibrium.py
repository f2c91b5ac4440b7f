"""Phase equilibria of a polymer of several chain lengths in one solvent, to 35 digits and with a proof for each.

    apt-get install python3-gmpy2
    /usr/bin/python3 equilibrium.py state   R1,R2,.. W1,W2,.. PHI CHI       stable phases at CHI
    /usr/bin/python3 equilibrium.py section R1,R2,.. W1,W2,.. PHI CHIMAX    borders in chi between numbers of phases

Phases are the global minimum when all touch one plane that lies nowhere above the free energy (plane.py). `proven`
checks this, and the equality of the chemical potentials as they are usually written, for each state that leaves this
file.

A border is missed when two of them lie between neighbouring steps of the walk along chi and nothing near tells of them.
"""

import itertools
import json
import sys

from gmpy2 import exp, log, mpfr

from plane import CONVERGED, SAME, STEP, TOUCHES, Plane, Sample, Unsolved, level, linear_solution, logit, number

LONGEST = mpfr("0.02")  # step in chi
SHORTEST = mpfr(10) ** -30


class State:
    """Phases that touch one plane: logits of their phi, their volumes, and chi."""

    def __init__(self, sample, phi0, unknowns):
        self.sample, self.phi0, self.x = sample, phi0, unknowns
        self.count = len(unknowns) // 2
        self.chi = unknowns[-1]
        self.phi = [1 / (1 + exp(-y)) for y in unknowns[: self.count]]
        self.volumes = unknowns[self.count : -1]

    def plane(self):
        s = [level(phi, self.chi) for phi in self.phi]
        r, w = self.sample.r, self.sample.w
        ln_a = []
        for length, weight in zip(r, w):
            spread = sum(v * exp(length * place) for v, place in zip(self.volumes, s))
            if not spread > 0:
                raise Unsolved("volumes below zero")
            ln_a.append(log(weight * self.phi0 / spread))
        return Plane(r, ln_a, self.chi)

    def residuals(self):
        plane = self.plane()
        points = [plane.point(level(phi, self.chi)) for phi in self.phi]
        pressures = [log(1 - phi) + phi + self.chi * phi**2 - sum(part / r for r, part in zip(plane.r, p.species))
                     for phi, p in zip(self.phi, points)]
        balance = [log(point.phi / phi) for phi, point in zip(self.phi, points)]
        return balance + [(p - pressures[0]) * self.sample.longest for p in pressures[1:]] + [sum(self.volumes) - 1]

    def moved(self, correction):
        return State(self.sample, self.phi0, [x + d for x, d in zip(self.x, correction)])

    def derivatives(self):
        base = self.residuals()
        columns = []
        for i in range(len(self.x)):
            shifted = self.moved([STEP if j == i else 0 for j in range(len(self.x))]).residuals()
            columns.append([(b - a) / STEP for a, b in zip(base, shifted)])
        return base, [list(row) for row in zip(*columns)]

    def solved(self, fixed):
        """Newton's method with the unknown of index `fixed` (a volume or chi) as it stands."""
        state = self
        unit = [mpfr(i == fixed) for i in range(len(self.x))]
        for _ in range(40):
            base, rows = state.derivatives()
            correction = linear_solution(rows + [unit], [-value for value in base] + [mpfr(0)])
            correction[fixed] = mpfr(0)
            largest = max(abs(d) for d in correction)
            state = state.moved([d * min(1, 1 / largest) for d in correction] if largest > 1 else correction)
            if largest < CONVERGED:
                return state
        raise Unsolved("no convergence")

    def tangent(self):
        """Derivatives of all unknowns by chi."""
        _, rows = self.derivatives()
        unit = [mpfr(0)] * (len(self.x) - 1) + [mpfr(1)]
        return linear_solution(rows + [unit], [mpfr(0)] * len(rows) + [mpfr(1)])

    def distinct(self):
        s = [level(phi, self.chi) * self.sample.longest for phi in self.phi]
        return all(abs(a - b) > mpfr(10) ** -9 for a, b in itertools.combinations(s, 2))

    def with_phase(self, phi):
        x = self.x
        unknowns = x[: self.count] + [logit(phi)] + x[self.count : -1] + [mpfr(0), self.chi]
        return State(self.sample, self.phi0, unknowns)

    def without_phase(self, k):
        drop = {k, self.count + k}
        return State(self.sample, self.phi0, [x for i, x in enumerate(self.x) if i not in drop])

    def other_minima(self):
        """Local minima of the distance other than the phases, with their heights above the phases' plane."""
        plane = self.plane()
        s = [level(phi, self.chi) for phi in self.phi]
        floor = plane.point(s[0]).distance
        return [(point.distance - floor, point.phi) for point in plane.minima()
                if min(abs(point.s - own) for own in s) * self.sample.longest > SAME]

    def proven(self):
        if min(self.volumes) < 0 or not self.distinct():
            raise Unsolved("volumes below zero or phases alike")
        if potential_differences(self) > TOUCHES:
            raise Unsolved("chemical potentials differ")
        if any(height * self.sample.longest < -TOUCHES for height, _ in self.other_minima()):
            raise Unsolved("not the lowest state")
        return self

    def species(self, k):
        plane = self.plane()
        return plane.point(level(self.phi[k], self.chi)).species


def potential_differences(state):
    """The largest error in the chemical potentials, written without the reduction, and in the material balance."""
    r, chi = state.sample.r, state.chi
    parts = [state.species(k) for k in range(state.count)]
    rows = []
    for phase in parts:
        phi, nu = sum(phase), sum(p / length for p, length in zip(phase, r))
        solvent = log(1 - phi) + phi - nu + chi * phi**2
        chains = [(log(p) + 1) / length - (1 - phi) - nu + chi * (1 - phi) ** 2 for p, length in zip(phase, r)]
        rows.append([solvent] + chains)
    errors = [abs(a - b) for row in rows for a, b in zip(row, rows[0])]
    for i, w in enumerate(state.sample.w):
        errors.append(abs(sum(v * phase[i] for v, phase in zip(state.volumes, parts)) / (w * state.phi0) - 1))
    return max(errors)


def cloud_point(sample, phi0):
    """The two phases, the second of no volume, at the lowest chi at which the sample is not alone.

    The distance of a composition from the sample's plane is that at chi = 0 less chi (phi - phi0)^2. The least quotient
    of the two is sought by taking the lowest point, then the chi at which this touches, and so on: chi falls, and the
    lowest point is global each time.
    """
    chi = sample.spinodal(phi0)
    for _ in range(200):
        plane = sample.plane_at(phi0, chi)
        own = plane.point(level(phi0, chi))
        others = [p for p in plane.minima() if abs(p.s - own.s) * sample.longest > 10 * SAME]
        if not others:
            raise Unsolved("critical point")
        lowest = min(others, key=lambda p: p.distance)
        lower = chi + (lowest.distance - own.distance) / (lowest.phi - phi0) ** 2
        if abs(lower - chi) < mpfr(10) ** -26:
            start = State(sample, phi0, [logit(phi0), logit(lowest.phi), mpfr(1), mpfr(0), lower])
            return start.solved(3).proven()
        chi = lower
    raise Unsolved("no cloud point")


class Border:
    def __init__(self, kind, state):
        self.kind, self.state = kind, state


class Walk:
    """Follows the stable state from the cloud point to higher chi; borders are those passed on the way."""

    def __init__(self, sample, phi0):
        state = cloud_point(sample, phi0)
        self.state = state
        self.borders = [Border("cloud", state)]
        self.passed = [state]  # all states on the way; at a border the one that goes on
        self.margins = []  # of the last steps: state, least volume, least height of another minimum
        self.length = mpfr(10) ** -4

    def to(self, chi):
        while chi - self.state.chi > SHORTEST:
            self.step(chi)
        return self.state

    def limited(self, tangent, end):
        change = max(abs(t) / (1 + abs(x) / 3) for t, x in zip(tangent[:-1], self.state.x))
        return min(self.length, LONGEST, mpfr("0.3") / change, end - self.state.chi)

    def step(self, end):
        tangent = self.state.tangent()
        h = self.limited(tangent, end)
        while h > SHORTEST / 2:
            state = self.attempted(tangent, h)
            if state is not None:
                self.length = 2 * h
                self.arrive(state)
                return
            h /= 2
        raise Unsolved(f"stuck at chi = {float(self.state.chi)}")

    def attempted(self, tangent, h):
        """The state at distance h, or the first border before it, or None when h is too long."""
        try:
            predicted = self.state.moved([t * h for t in tangent])
            state = predicted.solved(len(predicted.x) - 1)
            self.check_near(predicted, state, h, tangent)
            return self.first_border(state) or state
        except Unsolved:
            return None

    def check_near(self, predicted, state, h, tangent):
        moved = max(abs(t * h) for t in tangent)
        if not state.distinct() or max(abs(a - b) for a, b in zip(predicted.x, state.x)) > moved / 4:
            raise Unsolved("step too long")

    def first_border(self, state):
        found = []
        for k, volume in enumerate(state.volumes):
            if volume < 0:
                part = self.state.volumes[k] / (self.state.volumes[k] - volume)
                start = [a + part * (b - a) for a, b in zip(self.state.x, state.x)]
                start[state.count + k] = mpfr(0)
                border = State(state.sample, state.phi0, start).solved(state.count + k)
                found.append(Border("vanishes", border))
        if not found:
            for height, phi in state.other_minima():
                if height * state.sample.longest < -TOUCHES:
                    start = state.with_phase(phi)
                    found.append(Border("appears", start.solved(len(start.x) - 2)))
        if not found:
            return None
        first = min(found, key=lambda border: border.state.chi)
        if not self.state.chi < first.state.chi <= state.chi:
            raise Unsolved("border elsewhere")
        first.state.proven()
        return first

    def arrive(self, there):
        if isinstance(there, Border):
            self.borders.append(there)
            self.state = there.state if there.kind == "appears" else self.remaining(there.state)
            self.margins = []
        else:
            self.check_no_window(there.proven())
            self.state = there
        self.passed.append(self.state)

    @staticmethod
    def remaining(state):
        return state.without_phase(state.volumes.index(mpfr(0)))

    def check_no_window(self, state):
        """A margin that falls and rises again within three steps may have passed zero twice between them."""
        heights = [height * state.sample.longest for height, _ in state.other_minima()]
        self.margins.append((state, min(state.volumes), min(heights, default=None)))
        self.margins = self.margins[-3:]
        if len(self.margins) < 3:
            return
        for kind in (1, 2):
            samples = [(m[0].chi, m[kind]) for m in self.margins]
            if any(value is None for _, value in samples):
                continue
            lowest = valley(samples)
            if lowest is not None and lowest[1] < samples[1][1] / 2:
                self.look_at(lowest[0])

    def look_at(self, chi):
        base = min((m[0] for m in self.margins), key=lambda s: abs(s.chi - chi))
        state = base.moved([t * (chi - base.chi) for t in base.tangent()]).solved(len(base.x) - 1)
        state.proven()  # fails when the window is open there


def valley(samples):
    """The lowest point of the parabola through three points when it lies between them."""
    (x0, y0), (x1, y1), (x2, y2) = samples
    if not (y1 <= y0 and y1 <= y2) or x0 == x1 or x1 == x2:
        return None
    left, right = (y1 - y0) / (x1 - x0), (y2 - y1) / (x2 - x1)
    bend = (right - left) / (x2 - x0)
    if bend == 0:
        return None
    x = (x0 + x1 - left / bend) / 2
    return x, y0 + (x - x0) * (left + bend * (x - x1))


def single_phase(sample, phi0, chi):
    return State(sample, phi0, [logit(phi0), mpfr(1), chi]).proven()


def state_at(sample, phi0, chi):
    """The stable state at chi."""
    phi0, chi = number(phi0), number(chi)
    walk = Walk(sample, phi0)
    return single_phase(sample, phi0, chi) if chi <= walk.state.chi else walk.to(chi)


def section(sample, phi0, chi_max):
    """The borders up to chi_max, and the states in the middle between borders."""
    phi0, chi_max = number(phi0), number(chi_max)
    walk = Walk(sample, phi0)
    walk.to(chi_max)
    borders = [border for border in walk.borders if border.state.chi <= chi_max]
    chis = [border.state.chi for border in borders] + [chi_max]
    middles = [single_phase(sample, phi0, number(plain(chis[0] * mpfr("0.9"))))]
    for low, high in zip(chis, chis[1:]):
        chi = number(plain((low + high) / 2))
        known = [state for state in walk.passed if low <= state.chi < high]
        middles.append(state_near(min(known, key=lambda state: abs(state.chi - chi)), chi))
    return borders, middles


def state_near(state, chi):
    """From a state that is known to one at chi, with no border between."""
    last = len(state.x) - 1
    pieces = 1
    while pieces < 1000:
        try:
            result, step = state, (chi - state.chi) / pieces
            for _ in range(pieces):
                start = result.moved([t * step for t in result.tangent()])
                result = start.solved(last)
            return State(state.sample, state.phi0, result.x[:-1] + [chi]).solved(last).proven()
        except Unsolved:
            pieces *= 2
    raise Unsolved("no way to the middle")


def plain(value):
    """17 significant digits; what a double cannot hold is zero."""
    return float(f"{value:.16e}") if abs(value) > mpfr("1e-300") else 0.0


def state_record(state):
    phases = [{"volume": plain(state.volumes[k]), "phi": plain(state.phi[k]),
               "species": [plain(part) for part in state.species(k)]} for k in range(state.count)]
    return {"chi": plain(state.chi), "phases": sorted(phases, key=lambda phase: phase["phi"])}


def section_record(lengths, weights, phi0, chi_max):
    """The borders, the numbers of phases between them, and the states there, in the middle but for the first.

    The kinds of borders are cloud, appears and vanishes. The phase that comes or goes is listed with the volume zero.
    """
    sample = Sample(lengths, weights)
    borders, states = section(sample, phi0, chi_max)
    return {
        "r": lengths, "w": weights, "phi0": phi0, "chi_max": chi_max,
        "counts": [state.count for state in states],
        "borders": [{"kind": border.kind, **state_record(border.state)} for border in borders],
        "states": [state_record(state) for state in states],
    }


def main(arguments):
    if len(arguments) != 5 or arguments[0] not in ("state", "section"):
        sys.exit(__doc__)
    command, lengths, weights, phi0, chi = arguments
    lengths, weights = ([float(part) for part in text.split(",")] for text in (lengths, weights))
    if command == "section":
        result = section_record(lengths, weights, float(phi0), float(chi))
    else:
        result = state_record(state_at(Sample(lengths, weights), float(phi0), float(chi)))
    print(json.dumps(result, indent=1))


if __name__ == "__main__":
    main(sys.argv[1:])
