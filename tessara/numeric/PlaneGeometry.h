#pragma once

#include "tessara/numeric/DoublePoint.h"
#include "tessara/platform/base/Api.h"

class CTable;

// Lines, segments, circles and spheres. Yes and no are 1 and 0. Comparisons are exact; there is no tolerance
// but the radius given. Any numbers are accepted: what has a NaN coordinate crosses nothing and meets no
// disc, and its distance is NaN or infinite. Functions touch their arguments alone: any number of threads may
// call them. Pointers must not be null.
//
// A line is an array of three, (a, b, c): the points with a x + b y + c = 0, not normalised.

/// The line through two points, in two-point form; through equal points a vertical one.
TESSARA_API void LineEquation(CDoublePoint pt1, CDoublePoint pt2, double* const pLine);

/// 1 and the point where two lines cross; 0, leaving the point alone, when they are parallel: when the
/// determinant of their coefficients is exactly 0.
TESSARA_API int LinesCrossPoint(double* const pLine1, double* const pLine2, CDoublePoint& ptCross);

/// 1 and the point where two segments cross; 0 for parallel ones, also when they lie on each other. The
/// computed point must lie in the boxes of both, edges included, so rounding decides at end points. When
/// only the lines of segments with meeting boxes cross, the result is 0 and ptCross is where they do.
TESSARA_API int SegmentsCrossPoint(CDoublePoint ptA1, CDoublePoint ptA2, CDoublePoint ptB1, CDoublePoint ptB2,
                                   CDoublePoint& ptCross);

/// 1 when the segment (x1, y1)-(x2, y2) reaches into the open disc of radius r around (xc, yc): an oblique
/// segment with the rounding of the crossings that are computed, one parallel to an axis exactly when the
/// distance from the centre to its nearest point is less than r. A segment of one point is measured against
/// the open square around the disc.
TESSARA_API int IsSegmentIntersectsCircle(double x1, double y1, double x2, double y2, double xc, double yc,
                                          double r);

/// The distance from (x, y) to the segment (x1, y1)-(x2, y2).
TESSARA_API double PointToSegmentDistance2D(double x1, double y1, double x2, double y2, double x, double y);

/// 1 when the box of the segment from pA to pB meets the open cube of half-width r around pCenter; when the
/// segment is one point, whether that lies in the open ball. No distance to a longer segment is computed.
TESSARA_API int IsSegmentIntersectsSphere(int nDimensions, const double* pA, const double* pB,
                                          const double* pCenter, double r);

/// 1 when some segment of the polyline through the table's rows comes near the point, as
/// IsSegmentIntersectsSphere has it, in the first nDimensions columns. A table of fewer than two rows is
/// never near. Running out of memory throws CMemoryException.
TESSARA_API int IsTableNearPoint(int nDimensions, const CTable* pTable, const double* pPoint, double r);
