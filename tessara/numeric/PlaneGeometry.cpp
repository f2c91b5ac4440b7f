#include "tessara/numeric/PlaneGeometry.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "tessara/numeric/SegmentCrossing.h"

namespace {

using CLine = tessara::CLine<double>;

CLine LineThrough(CDoublePoint pt1, CDoublePoint pt2) {
    return {pt1.x, pt1.y, pt2.x, pt2.y};
}

/// Leaves the point alone when the lines are parallel.
int CrossPoint(const CLine& a, const CLine& b, CDoublePoint& ptCross) {
    CDoublePoint ptMeet;
    if (!Meet(a, b, ptMeet.x, ptMeet.y)) {
        return 0;
    }
    ptCross = ptMeet;
    return 1;
}

int Sign(double dValue) {
    return (dValue > 0) - (dValue < 0);
}

/// Whether two coordinates both lie at or beyond one end of a range.
bool BothOutside(double dCoordinate1, double dCoordinate2, double dLow, double dHigh) {
    return (dCoordinate1 <= dLow && dCoordinate2 <= dLow) || (dCoordinate1 >= dHigh && dCoordinate2 >= dHigh);
}

/// Whether the segment reaches between two places on its line, in one coordinate.
bool ReachesBetween(double dCoordinate1, double dCoordinate2, double dPlace1, double dPlace2) {
    return !BothOutside(dCoordinate1, dCoordinate2, std::min(dPlace1, dPlace2), std::max(dPlace1, dPlace2));
}

/// Whether the nearest point to the origin of the segment between (x1, y) and (x2, y) lies within r.
bool LevelSegmentMeetsDisc(double x1, double x2, double y, double r) {
    if (x1 > x2) {
        std::swap(x1, x2);
    }
    // Numbers that are none compare to nothing.
    return x1 <= x2 && std::hypot(std::max({0.0, x1, -x2}), y) < r;
}

/// The same for a segment that is parallel to no axis: where its line crosses the circle, and whether the
/// segment reaches between the crossings.
bool ObliqueSegmentMeetsDisc(CDoublePoint pt1, CDoublePoint pt2, double r) {
    const double dx = pt2.x - pt1.x;
    const double dy = pt2.y - pt1.y;
    const double dSquare = dy * dy + dx * dx;
    const double dCross = pt1.x * pt2.y - pt2.x * pt1.y;
    const double dDiscriminant = r * r * dSquare - dCross * dCross;
    if (!(dDiscriminant > 0)) {
        return false;
    }
    const double dRoot = std::sqrt(dDiscriminant);
    const CDoublePoint ptIn = {(Sign(dy) * dx * dRoot + dCross * dy) / dSquare,
                               (std::fabs(dy) * dRoot - dCross * dx) / dSquare};
    const CDoublePoint ptOut = {(dCross * dy - Sign(dy) * dx * dRoot) / dSquare,
                                (-dCross * dx - std::fabs(dy) * dRoot) / dSquare};
    return ReachesBetween(pt1.x, pt2.x, ptIn.x, ptOut.x) && ReachesBetween(pt1.y, pt2.y, ptIn.y, ptOut.y);
}

} // namespace

void LineEquation(CDoublePoint pt1, CDoublePoint pt2, double* const pLine) {
    const CLine line = LineThrough(pt1, pt2);
    pLine[0] = line.a;
    pLine[1] = line.b;
    pLine[2] = line.c;
}

int LinesCrossPoint(double* const pLine1, double* const pLine2, CDoublePoint& ptCross) {
    return CrossPoint({pLine1[0], pLine1[1], pLine1[2]}, {pLine2[0], pLine2[1], pLine2[2]}, ptCross);
}

int SegmentsCrossPoint(CDoublePoint ptA1, CDoublePoint ptA2, CDoublePoint ptB1, CDoublePoint ptB2,
                       CDoublePoint& ptCross) {
    const tessara::CBounds a({ptA1.x, ptA1.y, ptA2.x, ptA2.y});
    const tessara::CBounds b({ptB1.x, ptB1.y, ptB2.x, ptB2.y});
    return !Apart(a, b) && CrossPoint(LineThrough(ptA1, ptA2), LineThrough(ptB1, ptB2), ptCross) &&
           a.Contain(ptCross.x, ptCross.y) && b.Contain(ptCross.x, ptCross.y);
}

int IsSegmentIntersectsCircle(double x1, double y1, double x2, double y2, double xc, double yc, double r) {
    if (x1 == x2 && y1 == y2) {
        return xc - r < x1 && x1 < xc + r && yc - r < y1 && y1 < yc + r;
    }
    if (BothOutside(x1, x2, xc - r, xc + r) || BothOutside(y1, y2, yc - r, yc + r)) {
        return 0;
    }
    const CDoublePoint pt1 = {x1 - xc, y1 - yc};
    const CDoublePoint pt2 = {x2 - xc, y2 - yc};
    if (y1 == y2) {
        return LevelSegmentMeetsDisc(pt1.x, pt2.x, pt1.y, r);
    }
    if (x1 == x2) {
        return LevelSegmentMeetsDisc(pt1.y, pt2.y, pt1.x, r);
    }
    return ObliqueSegmentMeetsDisc(pt1, pt2, r);
}

double PointToSegmentDistance2D(double x1, double y1, double x2, double y2, double x, double y) {
    CDoublePoint ptNearest = {x1, y1};
    if (x1 != x2 || y1 != y2) {
        double t =
            ((y1 - y2) * (y1 - y) + (x1 - x2) * (x1 - x)) / ((y1 - y2) * (y1 - y2) + (x1 - x2) * (x1 - x2));
        t = t >= 1 ? 1 : t <= 0 ? 0 : t;
        ptNearest = {(x2 - x1) * t + x1, (y2 - y1) * t + y1};
    }
    return std::hypot(ptNearest.x - x, ptNearest.y - y);
}
