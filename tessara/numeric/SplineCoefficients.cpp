#include "tessara/numeric/SplineCoefficients.h"

// The second derivatives solve a tridiagonal system. Two sweeps over the knots do everything: the forward
// one sets the system up and eliminates, the backward one substitutes and turns the solution into
// coefficients. Until the backward sweep has passed, pD holds the widths, pB the diagonal and pC the
// right-hand side.

namespace tessara {

namespace {

/// The right-hand side of equation i of the interior: the change of slope at the knot.
double RightSide(const CKnots& knots, int i) {
    return IntervalSlope(knots, i) - IntervalSlope(knots, i - 1);
}

void ComputeStraightLine(const CKnots& knots, double* pB, double* pC, double* pD) {
    pB[0] = pB[1] = IntervalSlope(knots, 0);
    pC[0] = pC[1] = 0;
    pD[0] = pD[1] = 0;
}

void Eliminate(const CKnots& knots, double* pB, double* pC, double* pD) {
    const int nLast = knots.nPoints - 1;
    double dWidth = IntervalWidth(knots, 0);
    double dSlope = IntervalSlope(knots, 0);
    pD[0] = dWidth;
    pB[0] = -dWidth;
    pC[0] = FirstRightSide(knots);
    double dDiagonal = pB[0];
    double dRight = pC[0];
    for (int i = 1; i < nLast; ++i) {
        const double dFactor = dWidth / dDiagonal;
        const double dNextWidth = IntervalWidth(knots, i);
        const double dNextSlope = (knots.pY[i + 1] - knots.pY[i]) / dNextWidth;
        dDiagonal = 2 * (dWidth + dNextWidth) - dFactor * dWidth;
        dRight = (dNextSlope - dSlope) - dFactor * dRight;
        pD[i] = dWidth = dNextWidth;
        pB[i] = dDiagonal;
        pC[i] = dRight;
        dSlope = dNextSlope;
    }
    const double dFactor = dWidth / dDiagonal;
    pB[nLast] = -dWidth - dFactor * dWidth;
    pC[nLast] = LastRightSide(knots) - dFactor * dRight;
}

void Substitute(const CKnots& knots, double* pB, double* pC, double* pD) {
    const int nLast = knots.nPoints - 1;
    const double dEnd = pC[nLast] / pB[nLast];
    const double dEndWidth = pD[nLast - 1];
    double dNext = dEnd;
    for (int i = nLast - 1; i >= 0; --i) {
        const double dWidth = pD[i];
        const double dSolution = (pC[i] - dWidth * dNext) / pB[i];
        if (i == nLast - 1) {
            pB[nLast] = IntervalSlope(knots, i) + (2 * dEnd + dSolution) * dEndWidth;
        }
        pB[i] = (knots.pY[i + 1] - knots.pY[i]) / dWidth - (2 * dSolution + dNext) * dWidth;
        pD[i] = (dNext - dSolution) / dWidth;
        pC[i] = 3 * dSolution;
        dNext = dSolution;
    }
    pC[nLast] = 3 * dEnd;
    pD[nLast] = pD[nLast - 1];
}

} // namespace

double FirstRightSide(const CKnots& knots) {
    if (knots.nPoints == 3) {
        return 0;
    }
    const double* pX = knots.pX;
    const double dWidth = IntervalWidth(knots, 0);
    const double dCurvature = RightSide(knots, 2) / (pX[3] - pX[1]) - RightSide(knots, 1) / (pX[2] - pX[0]);
    return dCurvature * dWidth * dWidth / (pX[3] - pX[0]);
}

double LastRightSide(const CKnots& knots) {
    const int n = knots.nPoints;
    if (n == 3) {
        return 0;
    }
    const double* pX = knots.pX;
    const double dWidth = IntervalWidth(knots, n - 2);
    const double dCurvature =
        RightSide(knots, n - 2) / (pX[n - 1] - pX[n - 3]) - RightSide(knots, n - 3) / (pX[n - 2] - pX[n - 4]);
    return -dCurvature * dWidth * dWidth / (pX[n - 1] - pX[n - 4]);
}

void ComputeSpline(const CKnots& knots, double* pB, double* pC, double* pD) {
    if (knots.nPoints == 2) {
        ComputeStraightLine(knots, pB, pC, pD);
        return;
    }
    Eliminate(knots, pB, pC, pD);
    Substitute(knots, pB, pC, pD);
}

} // namespace tessara
