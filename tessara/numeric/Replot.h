#pragma once

#include "tessara/platform/base/Api.h"

class CCurve;

/// How RePlotCurve combines two curves A and B. A value that is none of these composes.
enum ReplotMode : int {
    ReplotComposition = 0,    ///< points (x, A(B(x)))
    ReplotEqualOrdinates = 1, ///< points (xA, xB) with A(xA) = B(xB)
    ReplotEqualAbscissae = 2  ///< points (B(x), A(x))
};

/// Combines two curves into a third. It has as many points as the longer curve, pB when they are equal: those
/// are its sample points; the other curve is interpolated by a cubic spline (see CSpline), with its order of
/// accuracy, and held constant beyond its ends. At the knots of both curves the result is exact.
///
/// The abscissae of the curve interpolated must ascend, or its ordinates where it is read the other way
/// round: for equal ordinates always, for a composition when pA is the longer one. Curves that do not, and
/// NaN, give what the spline makes of them, in the same time.
///
/// The caller owns the result. An interpolated curve of fewer than two points throws CInvalidArgException,
/// running out of memory CMemoryException.
TESSARA_API CCurve* RePlotCurve(CCurve* pA, CCurve* pB, ReplotMode mode);
