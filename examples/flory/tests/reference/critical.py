"""Critical end points, tricritical points, and the corners of cloud-point curves, to 35 digits and each proven.

    apt-get install python3-gmpy2
    /usr/bin/python3 critical.py end R1,R2,.. [W1,..]     the weights of the last length at which a critical point
                                                          coexists with a third phase; W1,.. proportions of the others
    /usr/bin/python3 critical.py tricritical R1           the second length, weights, phi, chi of a tricritical point
    /usr/bin/python3 critical.py cloud R1,R2,.. W1,W2,..  cusps and three-phase points of the cloud-point curve

E(s) is that of plane.py. Along its curve the distance from a plane is least at each phi and has the slope
phi'(s) E(s): a phase is at its spinodal when E' = 0, critical when E'' = 0 too, tricritical when the next two
derivatives are 0 too.
"""

import json
import sys

import gmpy2
from gmpy2 import asinh, exp, log, mpfr, sinh

from equilibrium import plain
from plane import CONVERGED, STEP, TOUCHES, Sample, Unsolved, level, linear_solution, logit, number

NEAR = mpfr(10) ** -5  # distance of s, in units of 1 / longest chain, from a critical point that its derivatives decide
NEAR_TRICRITICAL = mpfr(10) ** -2
GRID = [mpfr(4 * i) for i in range(-60, -3)] + [mpfr(i) / 6 for i in range(-71, 72)]  # logits of weights to start from
CURVE = 3000  # points of a cloud-point curve between which corners are sought


def fraction(y):
    return 1 / (1 + exp(-y))


def newton(function, x):
    """A root of as many functions as unknowns; of order one, and so are the unknowns."""
    for _ in range(60):
        base = function(x)
        columns = [function([v + STEP * (i == j) for j, v in enumerate(x)]) for i in range(len(x))]
        rows = [[(column[i] - base[i]) / STEP for column in columns] for i in range(len(x))]
        correction = linear_solution(rows, [-value for value in base])
        largest = max(abs(d) for d in correction)
        x = [v + d * min(1, 1 / (2 * largest)) for v, d in zip(x, correction)]
        if largest < CONVERGED:
            return x
    raise Unsolved("no convergence")


def bisected(function, low, high, rounds):
    """Encloses the change of a truth from `low`, where it is that of function(low)."""
    at_low = function(low)
    for _ in range(rounds):
        middle = (low + high) / 2
        low, high = (middle, high) if function(middle) == at_low else (low, middle)
    return low, high


def derivatives(sample, phi, chi, reach=0):
    """The first five derivatives of E at the sample, in units of the longest chain.

    With a reach, lower bounds within this distance: all terms are positive and rise with s, but for the last.
    """
    sizes = [length / sample.longest for length in sample.r]

    def powers(d):
        parts = [phi * weight * exp(d * size) for weight, size in zip(sample.w, sizes)]
        return [sum(part * size**k for part, size in zip(parts, sizes)) for k in range(6)]

    p0, p1, p2, p3, p4, p5 = powers(-reach)
    last = powers(reach)
    solvent = 1 - p0
    g1 = 1 / solvent - 2 * chi
    g2, g3, g4, g5 = 1 / solvent**2, 2 / solvent**3, 6 / solvent**4, 24 / solvent**5
    return [
        1 / sample.longest + g1 * last[1],
        g2 * p1**2 + g1 * last[2],
        g3 * p1**3 + 3 * g2 * p1 * p2 + g1 * last[3],
        g4 * p1**4 + 6 * g3 * p1**2 * p2 + g2 * (3 * p2**2 + 4 * p1 * p3) + g1 * last[4],
        g5 * p1**5 + 10 * g4 * p1**3 * p2 + g3 * (15 * p1 * p2**2 + 10 * p1**2 * p3)
        + g2 * (10 * p2 * p3 + 5 * p1 * p4) + g1 * last[5],
    ]


def critical_point(sample):
    """The one phi and chi at which the sample has E' = E'' = 0."""
    first = sample.moment(1)
    phi = 1 / (1 + first / gmpy2.sqrt(sample.moment(2) / first))
    return phi, sample.spinodal(phi)


def other_minima(sample, phi, chi, reach=NEAR):
    """Local minima of the distance from the sample's plane beyond `reach` of the sample: heights and points."""
    plane = sample.plane_at(phi, chi)
    own = plane.point(level(phi, chi))
    gap = reach / sample.longest
    points = plane.minima((own.s - gap, own.s + gap))
    return [((point.distance - own.distance) * sample.longest, point) for point in points]


class Family:
    """Samples whose last weight varies while the others keep their proportions."""

    def __init__(self, lengths, others):
        self.lengths = [number(value) for value in lengths]
        self.others = [number(value) / sum(map(number, others)) for value in others]

    def sample(self, y):
        last = fraction(y)
        result = Sample(self.lengths, self.others + [mpfr(1)])
        result.w = [value * (1 - last) for value in self.others] + [last]
        return result

    def critical_is_stable(self, y):
        sample = self.sample(y)
        phi, chi = critical_point(sample)
        if derivatives(sample, phi, chi)[2] < 0:
            return False
        return all(height > 0 for height, _ in other_minima(sample, phi, chi))

    def end_points(self):
        stable = [self.critical_is_stable(y) for y in GRID]
        return [self.end_point(*bisected(self.critical_is_stable, GRID[i], GRID[i + 1], 24))
                for i in range(len(GRID) - 1) if stable[i] != stable[i + 1]]

    def end_point(self, low, high):
        y = low if not self.critical_is_stable(low) else high
        sample = self.sample(y)
        height, third = min(other_minima(sample, *critical_point(sample)), key=lambda pair: pair[0])
        y, third = newton(self.conditions, [y, logit(third.phi)])
        return proven_end(self.sample(y), fraction(third))

    def conditions(self, x):
        sample = self.sample(x[0])
        phi, chi = critical_point(sample)
        plane = sample.plane_at(phi, chi)
        own, third = (plane.point(level(p, chi)) for p in (phi, fraction(x[1])))
        return [log(third.phi / fraction(x[1])), (third.distance - own.distance) * sample.longest]


def proven_end(sample, third):
    """The record of a critical end point, after the whole curve was searched for lower points."""
    phi, chi = critical_point(sample)
    slopes = derivatives(sample, phi, chi)
    if max(map(abs, slopes[:2])) > TOUCHES or not derivatives(sample, phi, chi, NEAR)[2] > 0:
        raise Unsolved("not critical")
    heights = [height for height, _ in other_minima(sample, phi, chi)]
    if min(heights) < -TOUCHES or min(heights) > TOUCHES:
        raise Unsolved("not the lowest state")
    point = sample.plane_at(phi, chi).point(level(third, chi))
    return {"r": list(map(plain, sample.r)), "w": list(map(plain, sample.w)), "phi": plain(phi), "chi": plain(chi),
            "third": {"phi": plain(third), "species": list(map(plain, point.species))}}


def tricritical_point(sample_of, p_low, p_high):
    """Where the first four derivatives of E vanish among the samples sample_of(p, q).

    At one end of p the third is above zero at the critical points of all q, at the other it is not.
    """

    def third(p, q):
        sample = sample_of(p, q)
        return derivatives(sample, *critical_point(sample))[2]

    def lowest(p):
        return min((mpfr(-10) + mpfr(20) * i / 400 for i in range(401)), key=lambda q: third(p, q))

    p, _ = bisected(lambda p: third(p, lowest(p)) < 0, number(p_low), number(p_high), 20)
    q = lowest(p)

    def conditions(x):
        sample = sample_of(*x)
        return derivatives(sample, *critical_point(sample))[2:4]

    p, q = newton(conditions, [p, q])
    return proven_tricritical(sample_of(p, q))


def proven_tricritical(sample):
    phi, chi = critical_point(sample)
    if max(map(abs, derivatives(sample, phi, chi)[:4])) > TOUCHES:
        raise Unsolved("not tricritical")
    if not derivatives(sample, phi, chi, NEAR_TRICRITICAL)[4] > 0:
        raise Unsolved("not stable")
    if any(height < -TOUCHES for height, _ in other_minima(sample, phi, chi, NEAR_TRICRITICAL)):
        raise Unsolved("not the lowest state")
    return {"r": list(map(plain, sample.r)), "w": list(map(plain, sample.w)), "phi": plain(phi), "chi": plain(chi)}


def weighted(lengths, parts):
    sample = Sample(lengths, [1] * len(parts))
    sample.w = [part / sum(parts) for part in parts]
    return sample


def tricritical_ratio(shortest):
    """Of two lengths, the shorter given."""
    short = number(shortest)

    def sample_of(p, q):
        return weighted([short, short * exp(p)], [1 - fraction(q), fraction(q)])

    return tricritical_point(sample_of, log(4), log(60))


def tricritical_mixture(lengths):
    """Of three given lengths, the outer two more than the tricritical ratio apart: the weights."""
    return tricritical_point(lambda p, q: weighted(lengths, [1 - fraction(q), exp(p), fraction(q)]), -9, 5)


class CloudCurve:
    """The cloud-point curve of a sample by the difference of s between the second phase and the sample.

    Without chi, which is linear, one equation in phi0 remains. It has one root for each difference, because a trapezium
    lies above each convex function.
    """

    def __init__(self, sample):
        self.sample = sample

    def point(self, d):
        """phi0, chi, and the second phase's E'."""
        r, w = self.sample.r, self.sample.w
        grown = [weight * exp(d * length) for length, weight in zip(r, w)]
        m1, m2 = sum(grown), sum(length * part for length, part in zip(r, grown))
        gap = (m1 + 1) * d / 2 - sum((part - weight) / length for length, weight, part in zip(r, w, grown))

        def rises_above(y):
            x = fraction(y) / max(m1, 1)
            chord = log((1 - m1 * x) / (1 - x)) / x * (1 - (m1 + 1) * x / 2) + m1 - 1
            return chord + gap > 0

        y, _ = bisected(rises_above, mpfr(-200), mpfr(60), 80)
        x = fraction(y) / max(m1, 1)
        chi = (d - log((1 - m1 * x) / (1 - x))) / (2 * x * (m1 - 1))
        return x, chi, 1 + (1 / (1 - m1 * x) - 2 * chi) * x * m2

    def sampled(self):
        far = asinh(12 * self.sample.longest / min(self.sample.r))
        steps = [far * (2 * mpfr(i) / CURVE - 1) for i in range(CURVE)]
        places = [sinh(t) / self.sample.longest for t in steps if t != 0]
        return [(d, *self.point(d)) for d in places]

    def conditions(self, ds, phi0, chi):
        """That the planes at the sample touch at the given differences of s."""
        plane = self.sample.plane_at(phi0, chi)
        own = plane.point(level(phi0, chi))
        points = [plane.point(own.s + d / self.sample.longest) for d in ds]
        if any(p.phi >= 1 for p in points):
            raise Unsolved("step too long")
        heights = [(p.distance - own.distance) * self.sample.longest for p in points]
        return [p.error * self.sample.longest for p in points] + heights, points

    def cusps(self, sampled):
        found = []
        for (d, phi0, chi, slope), (next_d, _, _, next_slope) in zip(sampled, sampled[1:]):
            if (slope > 0) != (next_slope > 0) and d * next_d > 0:  # at zero both phases are the critical one
                found += self.cusp([d * self.sample.longest, logit(phi0), chi])
        return found

    def cusp(self, start):
        def conditions(x):
            values, points = self.conditions(x[:1], fraction(x[1]), x[2])
            return values + [points[0].error_slope]

        try:
            d, y, chi = newton(conditions, start)
        except Unsolved:
            return []
        return [{"phi0": plain(fraction(y)), "chi": plain(chi)}] if abs(d) > mpfr(10) ** -6 else []

    def three_phase_points(self, sampled):
        found = []
        for i, j in crossings([(float(logit(p[1])), float(p[2])) for p in sampled]):
            a, b = sampled[i], sampled[j]
            found += self.three_phase_point([p[0] * self.sample.longest for p in (a, b)] + [logit(a[1]), a[2]])
        return found

    def three_phase_point(self, start):
        try:
            d1, d2, y, chi = newton(lambda x: self.conditions(x[:2], fraction(x[2]), x[3])[0], start)
        except Unsolved:
            return []
        if min(abs(d1), abs(d2), abs(d1 - d2)) < mpfr(10) ** -6:
            return []
        phi0 = fraction(y)
        _, points = self.conditions([d1, d2], phi0, chi)
        heights = [height for height, _ in other_minima(self.sample, phi0, chi)]
        return [{"phi0": plain(phi0), "chi": plain(chi), "others": sorted(plain(p.phi) for p in points),
                 "stable": min(heights) > -TOUCHES}]

    def record(self):
        phi, chi = critical_point(self.sample)
        stable = all(height > 0 for height, _ in other_minima(self.sample, phi, chi))
        stable = stable and derivatives(self.sample, phi, chi)[2] > 0
        sampled = self.sampled()
        return {"r": list(map(plain, self.sample.r)), "w": list(map(plain, self.sample.w)),
                "critical": {"phi": plain(phi), "chi": plain(chi), "stable": bool(stable)},
                "cusps": self.cusps(sampled), "three_phase_points": self.three_phase_points(sampled)}


def crossings(points):
    """Pairs of segments of a polyline that cross."""
    segments = list(zip(points, points[1:]))
    order = sorted(range(len(segments)), key=lambda i: min(segments[i][0][0], segments[i][1][0]))
    active, found = [], []
    for i in order:
        (ax, ay), (bx, by) = segments[i]
        left = min(ax, bx)
        active = [j for j in active if max(segments[j][0][0], segments[j][1][0]) >= left]
        found += [(i, j) for j in active if abs(i - j) > 1 and crossed(segments[i], segments[j])]
        active.append(i)
    return found


def crossed(one, other):
    def side(a, b, p):
        return (b[0] - a[0]) * (p[1] - a[1]) - (b[1] - a[1]) * (p[0] - a[0])

    return side(*one, other[0]) * side(*one, other[1]) < 0 and side(*other, one[0]) * side(*other, one[1]) < 0


def numbers(text):
    return [float(part) for part in text.split(",")]


def main(arguments):
    if len(arguments) > 1 and arguments[0] == "end":
        others = numbers(arguments[2]) if len(arguments) > 2 else [1.0]
        result = Family(numbers(arguments[1]), others).end_points()
    elif len(arguments) == 2 and arguments[0] == "tricritical":
        result = tricritical_ratio(float(arguments[1]))
    elif len(arguments) == 3 and arguments[0] == "cloud":
        result = CloudCurve(Sample(numbers(arguments[1]), numbers(arguments[2]))).record()
    else:
        sys.exit(__doc__)
    print(json.dumps(result, indent=1))


if __name__ == "__main__":
    main(sys.argv[1:])
