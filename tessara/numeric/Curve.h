#pragma once

#include "tessara/platform/base/Object.h"

/// A sampled function y(x): two parallel arrays of doubles.
///
/// To be evaluated, the abscissae must be non-decreasing; equal neighbours are a vertical step. Between
/// points the curve is straight, outside its abscissae it is constant. On unsorted or NaN abscissae Value
/// gives some value between points of the curve or NaN, in the same time; for NaN x it gives NaN or one of
/// the ordinates. A curve of one point is constant; Min, Max and Value of a curve without points are NaN.
///
/// A curve either owns its arrays, which then come from malloc and can be resized, or borrows arrays that the
/// caller keeps alive and releases. Fields are public: fill the arrays through them.
///
/// Running out of memory, and a negative count, throw CMemoryException; the curve then holds the smaller of
/// the two counts. Indices are not checked. Any number of threads may evaluate a curve that none changes.
///
///     CCurve curve(2);
///     curve.m_pX[0] = 0, curve.m_pY[0] = 10;
///     curve.m_pX[1] = 1, curve.m_pY[1] = 20;
///     double dMiddle = curve.Value(0.5); // 15
class TESSARA_API CCurve : public CObject {
    DECLARE_DYNAMIC(CCurve)

public:
    /// An owning curve; the values are undefined.
    explicit CCurve(int nPoints);
    /// A borrowing curve.
    CCurve(int nPoints, double* pX, double* pY);
    ~CCurve() override;

    /// Resizes an owning curve, keeping its leading points. Does nothing to a borrowing one.
    void ReAllocate(int nPoints);

    double Min() const; ///< the smallest ordinate
    double Max() const; ///< the largest ordinate

    /// The ordinate at x.
    double Value(double x) const;
    /// The same over the points nFirst to nLast alone; m_pY[nFirst] when nFirst > nLast.
    double Value(double x, int nFirst, int nLast) const;
    /// Value at each of n abscissae, to the last bit. Quickest when they ascend (one sweep over the points);
    /// otherwise many searches run at once. y may be x. Throws nothing. Where the curve's own abscissae are
    /// not in order, the two may differ.
    void Values(const double* x, double* y, int n) const;

    int m_nPoints;
    double* m_pX;  ///< abscissae; null when an owning curve has no points
    double* m_pY;  ///< ordinates
    BOOL m_bOwner; ///< nonzero when both arrays are the curve's
};

/// The value at x of the straight line through (x1, y1) and (x2, y2), extended beyond them; exactly y2 at x2,
/// and y1 for every x when x1 equals x2.
TESSARA_API double LinearInterpolation(double x, double y1, double y2, double x1, double x2);
