#pragma once

#include <cmath>

#include "tessara/numeric/Knots.h"

namespace tessara {

/// Keeps an interval width from vanishing: less than 1e-16 in magnitude becomes 1e-16 of the opposite sign,
/// where zero counts as positive. NaN stays.
inline double GuardedWidth(double dWidth) {
    constexpr double dLeast = 1e-16;
    if (std::isless(std::fabs(dWidth), dLeast)) { // quiet for NaN
        return dWidth < 0 ? dLeast : -dLeast;
    }
    return dWidth;
}

/// The guarded width of interval i.
inline double IntervalWidth(const CKnots& knots, int i) {
    return GuardedWidth(knots.pX[i + 1] - knots.pX[i]);
}

/// The slope of the straight line over interval i.
inline double IntervalSlope(const CKnots& knots, int i) {
    return (knots.pY[i + 1] - knots.pY[i]) / IntervalWidth(knots, i);
}

/// The right-hand sides of the first and the last equation: what makes the third derivative at each end that
/// of the cubic through the four points nearest to it, or 0 with three knots.
/// REQUIRES: knots.nPoints >= 3
double FirstRightSide(const CKnots& knots);
double LastRightSide(const CKnots& knots);

/// Computes the coefficients of the spline through the knots: between knots i and i + 1, with t = x - pX[i],
/// it is pY[i] + pB[i] t + pC[i] t^2 + pD[i] t^3. The arrays have nPoints elements each.
/// REQUIRES: knots.nPoints >= 2
void ComputeSpline(const CKnots& knots, double* pB, double* pC, double* pD);

} // namespace tessara
