"""The free energy of a solution of a polymer of several chain lengths, and the hyperplanes that touch it.

The free energy of a site is (1-phi) ln(1-phi) + sum (phi_i/r_i) ln phi_i + chi phi (1-phi) with phi_i of species i and
phi their sum. A hyperplane that touches it has, with one constant a_i for each species, the touching points

    phi_i = a_i exp(r_i s),    s = ln(1-phi) + 2 chi phi,

because the free energy is convex at constant phi. The distance from a plane is therefore known from its values on the
curve phi_i = a_i exp(r_i s) alone, and its slope there is phi'(s) E(s) with

    E(s) = s - ln(1-phi(s)) - 2 chi phi(s).

Plane.stationary_points() finds all roots of E by bisection with bounds, not by a grid. Arithmetic has 57 digits.
"""

import gmpy2
from gmpy2 import exp, log, mpfr

gmpy2.get_context().precision = 192

STEP = mpfr(2) ** -80  # for derivatives by differences: about 24 digits, enough for Newton's method to gain fast
CONVERGED = mpfr(10) ** -38  # of Newton's last correction
TOUCHES = mpfr(10) ** -30  # distance from the plane, in units of 1 / longest chain, that is zero
SAME = mpfr(10) ** -12  # difference of s, in units of 1 / longest chain, below which two roots are one


class Unsolved(Exception):
    """Newton's method led nowhere, or a result could not be proven."""


def number(value):
    return value if isinstance(value, type(mpfr(0))) else mpfr(float(value))


class Sample:
    """Lengths and weights of the polymer; weights are divided by their sum."""

    def __init__(self, lengths, weights):
        self.r = [number(value) for value in lengths]
        total = sum(number(value) for value in weights)
        self.w = [number(value) / total for value in weights]
        self.longest = max(self.r)

    def moment(self, power):
        return sum(w * r**power for r, w in zip(self.r, self.w))

    def spinodal(self, phi):
        return (1 / (1 - phi) + 1 / (phi * self.moment(1))) / 2

    def plane_at(self, phi, chi):
        """The plane that touches at the sample itself."""
        s = level(phi, chi)
        return Plane(self.r, [log(w * phi) - r * s for r, w in zip(self.r, self.w)], chi)


def logit(phi):
    return log(phi / (1 - phi))


def level(phi, chi):
    return log(1 - phi) + 2 * chi * phi


class Point:
    """A point of the curve of a plane: its species, their sum, E, and the distance from the plane."""

    def __init__(self, plane, s):
        self.s = s
        self.species = [exp(ln_a + r * s) for r, ln_a in zip(plane.r, plane.ln_a)]
        self.phi = sum(self.species)
        self.slope = sum(r * part for r, part in zip(plane.r, self.species))
        self.bow = sum(r * r * part for r, part in zip(plane.r, self.species))
        if self.phi < 1:
            chi, ln_solvent = plane.chi, log(1 - self.phi)
            nu = sum(part / r for r, part in zip(plane.r, self.species))
            self.level = ln_solvent + 2 * chi * self.phi
            self.error = s - self.level
            self.bend = 1 / (1 - self.phi) - 2 * chi
            self.error_slope = 1 + self.bend * self.slope
            self.solvent_part = (self.slope / (1 - self.phi)) ** 2
            self.error_bend = self.solvent_part + self.bend * self.bow
            self.distance = (1 - self.phi) * ln_solvent - chi * self.phi**2 + self.phi * (1 + s) - nu


class Plane:
    def __init__(self, lengths, ln_a, chi):
        self.r, self.ln_a, self.chi = lengths, ln_a, chi

    def point(self, s):
        return Point(self, s)

    def s_where(self, phi):
        """Where the curve reaches phi: Newton's method on ln phi(s), which is convex and rises."""
        s = min((log(phi) - ln_a) / r for r, ln_a in zip(self.r, self.ln_a))  # phi or more is reached here
        for _ in range(200):
            parts = [exp(ln_a + r * s) for r, ln_a in zip(self.r, self.ln_a)]
            step = log(sum(parts) / phi) * sum(parts) / sum(r * part for r, part in zip(self.r, parts))
            s -= step
            if abs(step) <= abs(s) * mpfr(10) ** -30 + mpfr(10) ** -60:
                return s
        raise Unsolved("no such point on the curve")

    def range(self):
        """Two ends that enclose all roots: E < 0 at and below the first, E > 0 at and above the second."""
        peak = max(1 - 1 / (2 * self.chi), mpfr(10) ** -6)
        top = max(level(peak, self.chi), mpfr(0))
        low = min(mpfr(0), self.s_where(peak))
        margin = (top - low) / 1000 + mpfr(10) ** -9
        low -= margin
        nearly_full = 1 - exp(low - 2 * self.chi - 1)
        return low, min(top + margin, self.s_where(nearly_full))

    def highest_level(self, left, right):
        peak = 1 - 1 / (2 * self.chi)
        return level(peak, self.chi) if left.phi < peak < right.phi else max(left.level, right.level)

    def sign_between(self, left, right):
        """The sign of E when it is one in the whole interval: all sums rise with s, and the level has one peak."""
        if left.s > self.highest_level(left, right):
            return 1
        return -1 if right.s < min(left.level, right.level) else 0

    @staticmethod
    def slopes_between(left, right):
        """Bounds of E': the better of those by its factors, which rise with s, and those by E'', where they do too."""
        products = [1 + bend.bend * end.slope for bend in (left, right) for end in (left, right)]
        bows = [bend.bend * end.bow for bend in (left, right) for end in (left, right)]
        bends = left.solvent_part + min(bows), right.solvent_part + max(bows)
        least, most = between(left.error_slope, right.error_slope, *bends, right.s - left.s)
        return max(least, min(products)), min(most, max(products))

    def polished(self, left, right):
        rises = right.error > 0
        point = self.point((left.s + right.s) / 2)
        for _ in range(400):
            if (point.error > 0) == rises:
                right = point
            else:
                left = point
            s = point.s - point.error / point.error_slope if point.error_slope != 0 else left.s
            if abs(s - point.s) * max(self.r) < CONVERGED:
                return point
            point = self.point(s if left.s < s < right.s else (left.s + right.s) / 2)
        return point

    def stationary_points(self, but_for=None):
        """All points of the curve where E = 0, from low s to high; roots closer than SAME may come as one.

        An interval `but_for` of s is left out.
        """
        low, high = self.range()
        count = 64
        places = [low + (high - low) * i / count for i in range(count + 1)]
        if but_for:
            places = sorted([s for s in places if not but_for[0] <= s <= but_for[1]] + list(but_for))
        ends = [self.point(s) for s in places]
        work = [(a, b) for a, b in zip(ends, ends[1:]) if not but_for or a.s != but_for[0]][::-1]
        found = []
        while work:
            left, right = work.pop()
            if self.sign_between(left, right):
                continue
            least, most = self.slopes_between(left, right)
            if least > 0 or most < 0:
                if (left.error < 0) != (right.error < 0):
                    found.append(self.polished(left, right))
                continue
            lowest, highest = between(left.error, right.error, least, most, right.s - left.s)
            if lowest > 0 or highest < 0:
                continue
            middle = self.point((left.s + right.s) / 2)
            if (right.s - left.s) * max(self.r) < SAME:
                if not found or (middle.s - found[-1].s) * max(self.r) > 10 * SAME:
                    found.append(middle)
                continue
            work += [(middle, right), (left, middle)]
        return found

    def minima(self, but_for=None):
        return [point for point in self.stationary_points(but_for) if point.error_slope > -SAME]


def between(left, right, least, most, width):
    """Bounds of a function in an interval by its values at the ends and bounds of its slope."""
    if least >= 0:
        return left, right
    if most <= 0:
        return right, left
    reach = least * most * width  # the bounds are where two lines from the ends cross
    spread = most - least
    return (most * left - least * right + reach) / spread, (most * right - least * left - reach) / spread


def linear_solution(rows, right):
    """Gauss's elimination with the largest scaled pivot."""
    table = [row[:] + [value] for row, value in zip(rows, right)]
    size = len(table)
    for k in range(size):
        pivot = max(range(k, size), key=lambda i: abs(table[i][k]) / max(abs(t) for t in table[i][:-1]))
        table[k], table[pivot] = table[pivot], table[k]
        if table[k][k] == 0 or not gmpy2.is_finite(table[k][k]):
            raise Unsolved("singular")
        for i in range(k + 1, size):
            factor = table[i][k] / table[k][k]
            table[i] = [a - factor * b for a, b in zip(table[i], table[k])]
            if not any(table[i][:-1]):
                raise Unsolved("singular")
    result = [mpfr(0)] * size
    for k in reversed(range(size)):
        result[k] = (table[k][size] - sum(table[k][j] * result[j] for j in range(k + 1, size))) / table[k][k]
    return result
