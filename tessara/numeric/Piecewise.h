#pragma once

#include <algorithm>
#include <cmath>
#include <limits>

#include "tessara/numeric/IntervalFinder.h"
#include "tessara/numeric/Knots.h"
#include "tessara/numeric/Lookup.h"
#include "tessara/platform/base/NoTraps.h"

// Functions of one variable that are defined piece by piece between knots and are constant outside them: one
// value at a time, and many at once. What a piece is, is a class with the operations of CLinearPiece.

namespace tessara {

/// Straight lines between the knots.
struct CLinearPiece {
    const double* pX;
    const double* pY;

    /// Piece i, from knot i to the next, at x.
    double operator()(int i, double x) const {
        if (pX[i + 1] == pX[i]) {
            return pY[i];
        }
        return ((x - pX[i]) * (pY[i + 1] - pY[i])) / (pX[i + 1] - pX[i]) + pY[i];
    }

    /// Asks for what piece i is made of.
    void Prefetch(int i) const { __builtin_prefetch(pY + i); }
};

/// Cubics in the distance from their left knot.
struct CCubicPiece {
    const double* pX;
    const double* pY;
    const double* pB;
    const double* pC;
    const double* pD;

    double operator()(int i, double x) const {
        const double t = x - pX[i];
        return ((t * pD[i] + pC[i]) * t + pB[i]) * t + pY[i];
    }

    void Prefetch(int i) const {
        __builtin_prefetch(pY + i);
        __builtin_prefetch(pB + i);
        __builtin_prefetch(pC + i);
        __builtin_prefetch(pD + i);
    }
};

/// The value at x; the ordinate of a single knot. REQUIRES: a knot
template <class PIECE>
double ClampedValue(const CKnots& knots, double x, const PIECE& piece) {
    const int nLast = knots.nPoints - 1;
    // By function: what is not a number raises no floating-point exception then.
    if (nLast < 1 || std::islessequal(x, knots.pX[0])) {
        return knots.pY[0];
    }
    if (std::isgreaterequal(x, knots.pX[nLast])) {
        return knots.pY[nLast];
    }
    // At the second abscissa the first interval is used, though the search would find the second one.
    return piece(std::islessequal(x, knots.pX[1]) ? 0 : FindInterval(knots.pX, 0, nLast, x), x);
}

/// The value at each of nCount x, to the last bit what ClampedValue gives; the ordinate of a single knot, NaN
/// without any. pValues may be pAt.
template <class PIECE>
void EvaluateAll(const CKnots& knots, const PIECE& piece, const double* pAt, double* pValues, int nCount) {
    if (knots.nPoints < 2) {
        const double dValue = knots.nPoints < 1 ? std::numeric_limits<double>::quiet_NaN() : knots.pY[0];
        std::fill_n(pValues, std::max(nCount, 0), dValue);
        return;
    }
    const CNoTraps noTraps; // vectors compare what may be no number; where an index overflows it is left out
    const int nLast = knots.nPoints - 1;
    const double dFirst = knots.pX[0];
    const double dSecond = knots.pX[1];
    const double dLast = knots.pX[nLast];
    CIntervalFinder finder(knots.pX, nLast, nCount);
    int intervals[CIntervalFinder::BLOCK];
    for (int nDone = 0; nDone < nCount; nDone += CIntervalFinder::BLOCK) {
        const int nBlock = std::min(nCount - nDone, CIntervalFinder::BLOCK);
        if (!finder.Find(pAt + nDone, nBlock, intervals)) {
            std::for_each(intervals, intervals + nBlock, [&](int i) { piece.Prefetch(i); });
        }
        for (int k = 0; k < nBlock; ++k) {
            const double x = pAt[nDone + k];
            double& dValue = pValues[nDone + k];
            if (x <= dFirst) {
                dValue = knots.pY[0];
            } else if (x >= dLast) {
                dValue = knots.pY[nLast];
            } else {
                dValue = piece(x <= dSecond ? 0 : intervals[k], x);
            }
        }
    }
}

} // namespace tessara
