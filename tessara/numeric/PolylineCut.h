#pragma once

#include <limits>

#include "tessara/platform/base/Api.h"

class CMultipartCurve;

namespace tessara {

/// A rectangle of data, edges included; unbounded where nothing is said.
struct CDataWindow {
    double dXMin = -std::numeric_limits<double>::infinity();
    double dXMax = std::numeric_limits<double>::infinity();
    double dYMin = -std::numeric_limits<double>::infinity();
    double dYMax = std::numeric_limits<double>::infinity();

    /// False for a value that is not a number.
    bool Contains(double dX, double dY) const { return ContainsX(dX) && dY >= dYMin && dY <= dYMax; }
    bool ContainsX(double dX) const { return dX >= dXMin && dX <= dXMax; }
};

/// Where a segment of a polyline crosses an edge of a window.
struct CCutPlace {
    double dX; ///< in the window; on an edge exactly
    double dY;
    int nEnd;    ///< index of the segment's second point
    double dWay; ///< along the segment, from 0 to 1
};

/// Receives what of a polyline lies in a window, in order.
class TESSARA_API CPieceSink {
public:
    CPieceSink() = default;
    virtual ~CPieceSink();
    CPieceSink(const CPieceSink&) = delete;
    CPieceSink& operator=(const CPieceSink&) = delete;

    /// What follows is not joined to what was before.
    virtual void BeginPiece() = 0;
    /// The polyline's points from nFirst up to, and without, nEnd.
    virtual void AddPoints(int nFirst, int nEnd) = 0;
    virtual void AddCut(const CCutPlace& place) = 0;
};

/// Cuts the open polyline through nPoints points at the edges of a window, each segment by itself: what is
/// handed out lies on the polyline and in the window. A point that is infinite or not a number is a gap; one
/// between two gaps is a piece of one point, and a segment that only touches a corner or an edge one of two
/// equal points. A window of which an edge is not a number, or whose edges are reversed, holds nothing.
TESSARA_API void CutPolyline(const double* pX, const double* pY, int nPoints, const CDataWindow& window,
                             CPieceSink& sink);

/// The pieces of a curve's parts, each a new part of the same colour, in order. Points outside parts are left
/// out, and what a part has beyond the last point. The caller owns the result, which owns its data; null when
/// nothing lies in the window. Running out of memory throws CMemoryException.
///
/// What ZoomMultipartCurve gives beside it has each point in one place only: a point beyond an edge is moved
/// there for the segment before it and stays so for the one behind.
TESSARA_API CMultipartCurve* CutMultipartCurve(CMultipartCurve* pCurve, double xMin, double yMin, double xMax,
                                               double yMax);

} // namespace tessara
