#pragma once

#include <algorithm>

#include "tessara/numeric/SegmentBox.h"

// Lines through two points, and whether and where two segments cross, from their end points alone.

namespace tessara {

struct CSegment {
    double x1, y1, x2, y2;
};

/// The smallest and largest coordinates of a segment. A NaN first end makes both bounds NaN, a NaN second end
/// leaves the first.
struct CBounds {
    explicit CBounds(const CSegment& s)
        : dMinX(std::min(s.x1, s.x2)), dMaxX(std::max(s.x1, s.x2)), dMinY(std::min(s.y1, s.y2)),
          dMaxY(std::max(s.y1, s.y2)) {}

    /// False for a NaN point.
    bool Contain(double x, double y) const {
        return (dMinX <= x) & (x <= dMaxX) & (dMinY <= y) & (y <= dMaxY);
    }

    double dMinX, dMaxX, dMinY, dMaxY;
};

/// Whether the bounding boxes keep two segments apart; boxes that touch do not, nor do NaN bounds.
inline bool Apart(const CBounds& a, const CBounds& b) {
    return (a.dMinX > b.dMaxX) | (b.dMaxY < a.dMinY) | (a.dMaxX < b.dMinX) | (a.dMaxY < b.dMinY);
}

/// The line a x + b y + c = 0 through two points in two-point form, a vertical one through equal points.
/// NUMBER is double, or CLanes for two lines side by side.
template <class NUMBER>
struct CLine {
    CLine(NUMBER x1, NUMBER y1, NUMBER x2, NUMBER y2) {
        const NUMBER zero{};
        const NUMBER one = zero + 1.0;
        const auto vertical = x1 == x2;
        const auto level = y1 == y2;
        // What is computed for nothing is not selected, nor does it divide by zero: a program may trap that.
        const NUMBER width = vertical ? one : x2 - x1;
        const NUMBER height = level ? one : y2 - y1;
        const NUMBER obliqueA = one / width;
        const NUMBER obliqueB = -one / height;
        const NUMBER obliqueC = -x1 * obliqueA + y1 / height;
        a = vertical ? one : level ? zero : obliqueA;
        b = vertical ? zero : level ? one : obliqueB;
        c = vertical ? -x1 : level ? -y1 : obliqueC;
    }

    CLine(NUMBER dA, NUMBER dB, NUMBER dC) : a(dA), b(dB), c(dC) {}

    NUMBER a, b, c;
};

/// One of two lines side by side.
inline CLine<double> Lane(const CLine<CLanes>& lines, int i) {
    return {lines.a[i], lines.b[i], lines.c[i]};
}

/// Whether two lines are not parallel, and the point where they meet. Without branches: what parallel lines
/// give is no point, though no division by zero either.
inline bool Meet(const CLine<double>& a, const CLine<double>& b, double& x, double& y) {
    const double dDeterminant = a.a * b.b - a.b * b.a;
    const double dInverse = 1 / (dDeterminant + (dDeterminant == 0));
    x = (a.b * b.c - a.c * b.b) * dInverse;
    y = (a.c * b.a - a.a * b.c) * dInverse;
    return dDeterminant != 0;
}

/// Whether segments a and b cross, and the point: where their lines meet, when this lies within both bounding
/// boxes, and for parallel lines nowhere. The order of the two segments matters to the last bits of the
/// point. Boxes that are apart have no point in common, so this needs no test of its own.
inline bool Cross(const CSegment& a, const CSegment& b, double& x, double& y) {
    const CLine<CLanes> lines(CLanes{a.x1, b.x1}, CLanes{a.y1, b.y1}, CLanes{a.x2, b.x2}, CLanes{a.y2, b.y2});
    const bool bMeet = Meet(Lane(lines, 0), Lane(lines, 1), x, y);
    return bMeet & CBounds(a).Contain(x, y) & CBounds(b).Contain(x, y);
}

} // namespace tessara
