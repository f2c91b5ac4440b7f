#pragma once

#include <algorithm>

#include "tessara/numeric/SegmentBox.h"

// The test that decides whether two segments cross, and where, from their end points alone.

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

/// The lines a x + b y + c = 0 through both ends of two segments, one in each lane; a vertical one through a
/// segment of length zero.
struct CTwoLines {
    CTwoLines(const CSegment& s, const CSegment& t) {
        const CLanes x1 = {s.x1, t.x1}, y1 = {s.y1, t.y1};
        const CLanes x2 = {s.x2, t.x2}, y2 = {s.y2, t.y2};
        const CLanes zero = BothLanes(0), one = BothLanes(1);
        const CLaneMask vertical = x1 == x2;
        const CLaneMask level = y1 == y2;
        // What is divided by zero here is not selected.
        const CLanes obliqueA = one / (x2 - x1);
        const CLanes obliqueB = -one / (y2 - y1);
        const CLanes obliqueC = -x1 * obliqueA + y1 / (y2 - y1);
        a = vertical ? one : level ? zero : obliqueA;
        b = vertical ? zero : level ? one : obliqueB;
        c = vertical ? -x1 : level ? -y1 : obliqueC;
    }

    CLanes a, b, c;
};

/// Whether segments a and b cross, and the point: where their lines meet, when this lies within both bounding
/// boxes, and for parallel lines nowhere. The order of the two segments matters to the last bits of the
/// point. REQUIRES: the boxes are not apart.
inline bool CrossWithinBoxes(const CSegment& a, const CSegment& b, double& x, double& y) {
    const CTwoLines lines(a, b);
    const double dDeterminant = lines.a[0] * lines.b[1] - lines.b[0] * lines.a[1];
    if (dDeterminant == 0) {
        return false;
    }
    const double dInverse = 1 / dDeterminant;
    x = (lines.b[0] * lines.c[1] - lines.c[0] * lines.b[1]) * dInverse;
    y = (lines.c[0] * lines.a[1] - lines.a[0] * lines.c[1]) * dInverse;
    return CBounds(a).Contain(x, y) & CBounds(b).Contain(x, y);
}

} // namespace tessara
