#include "tessara/numeric/MultiSplineCoefficients.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "tessara/numeric/SplineCoefficients.h"
#include "tessara/numeric/Storage.h"

// The matrix depends on the abscissae alone and is factored once. What remains are two recurrences along the
// knots of each column; each waits for its own last step, so several columns go side by side.

namespace tessara {

namespace {

/// The factored matrix: of equation i the width of the interval, by what the equation before is multiplied to
/// be taken off, and what remains on the diagonal.
struct CFactors {
    /// pArrays has room for three arrays.
    CFactors(const CKnots& knots, double* pArrays)
        : pWidth(pArrays), pFactor(pWidth + knots.nPoints), pDiagonal(pFactor + knots.nPoints) {
        const int nLast = knots.nPoints - 1;
        pWidth[0] = IntervalWidth(knots, 0);
        pDiagonal[0] = -pWidth[0];
        for (int i = 1; i <= nLast; ++i) {
            double dDiagonal = -pWidth[i - 1];
            if (i < nLast) {
                pWidth[i] = IntervalWidth(knots, i);
                dDiagonal = 2 * (pWidth[i - 1] + pWidth[i]);
            }
            pFactor[i] = pWidth[i - 1] / pDiagonal[i - 1];
            pDiagonal[i] = dDiagonal - pFactor[i] * pWidth[i - 1];
        }
    }

    double* pWidth;
    double* pFactor;
    double* pDiagonal;
};

/// The arrays of one column.
struct CCoefficients {
    double* pB;
    double* pC;
    double* pD;
};

constexpr int LANES = 8;
using CPair = double __attribute__((vector_size(16)));

/// Columns that go side by side, two to a register, and their numbers row by row: first the right-hand sides,
/// then the solution. Kept apart from the columns, whose arrays often lie at distances that share few places
/// in the cache.
struct CGroup {
    const double* columns[LANES];
    double* pRows; ///< LANES numbers for each knot

    double* Row(std::ptrdiff_t i) const { return pRows + LANES * i; }
    CPair Pair(int i, int nPair) const { return CPair{Row(i)[2 * nPair], Row(i)[2 * nPair + 1]}; }
    void SetPair(int i, int nPair, CPair pair) const {
        Row(i)[2 * nPair] = pair[0];
        Row(i)[2 * nPair + 1] = pair[1];
    }
    CPair Ordinates(int i, int nPair) const {
        return CPair{columns[2 * nPair][i], columns[2 * nPair + 1][i]};
    }
};

void Eliminate(const CKnots& knots, const CFactors& factors, const CGroup& group) {
    const int nLast = knots.nPoints - 1;
    for (int k = 0; k < LANES; ++k) {
        const CKnots own = {knots.nPoints, knots.pX, group.columns[k]};
        group.Row(0)[k] = FirstRightSide(own);
        group.Row(nLast)[k] = LastRightSide(own);
    }
    CPair rights[LANES / 2];
    CPair ordinates[LANES / 2];
    CPair slopes[LANES / 2];
    for (int p = 0; p < LANES / 2; ++p) {
        rights[p] = group.Pair(0, p);
        ordinates[p] = group.Ordinates(1, p);
        slopes[p] = (ordinates[p] - group.Ordinates(0, p)) / factors.pWidth[0];
    }
    for (int i = 1; i < nLast; ++i) {
        for (int p = 0; p < LANES / 2; ++p) {
            const CPair next = group.Ordinates(i + 1, p);
            const CPair slope = (next - ordinates[p]) / factors.pWidth[i];
            rights[p] = (slope - slopes[p]) - factors.pFactor[i] * rights[p];
            group.SetPair(i, p, rights[p]);
            ordinates[p] = next;
            slopes[p] = slope;
        }
    }
    for (int p = 0; p < LANES / 2; ++p) {
        const CPair last = group.Pair(nLast, p) - factors.pFactor[nLast] * rights[p];
        group.SetPair(nLast, p, last / factors.pDiagonal[nLast]);
    }
}

/// Solves the rows [nFirst, nEnd), of which the one at nEnd has been solved.
void Substitute(const CFactors& factors, const CGroup& group, int nFirst, int nEnd) {
    CPair next[LANES / 2];
    for (int p = 0; p < LANES / 2; ++p) {
        next[p] = group.Pair(nEnd, p);
    }
    for (int i = nEnd - 1; i >= nFirst; --i) {
        for (int p = 0; p < LANES / 2; ++p) {
            next[p] = (group.Pair(i, p) - factors.pWidth[i] * next[p]) / factors.pDiagonal[i];
            group.SetPair(i, p, next[p]);
        }
    }
}

/// The coefficients of nPieces pieces of one column: pWidth, pY and pSolution are those of the first of them.
void StorePieces(const double* __restrict pWidth, const double* __restrict pY,
                 const double* __restrict pSolution, int nPieces, double* __restrict pB,
                 double* __restrict pC, double* __restrict pD) {
    for (std::ptrdiff_t i = 0; i < nPieces; ++i) {
        const double dSolution = pSolution[LANES * i];
        const double dNext = pSolution[LANES * i + LANES];
        pB[i] = (pY[i + 1] - pY[i]) / pWidth[i] - (2 * dSolution + dNext) * pWidth[i];
        pC[i] = 3 * dSolution;
        pD[i] = (dNext - dSolution) / pWidth[i];
    }
}

/// The coefficients at the last knot of one column.
void StoreEnd(const CFactors& factors, const CGroup& group, int nLane, const CCoefficients& to, int nLast) {
    const double* pY = group.columns[nLane];
    const double dWidth = factors.pWidth[nLast - 1];
    const double dSolution = group.Row(nLast)[nLane];
    const double dPrevious = group.Row(nLast - 1)[nLane];
    to.pB[nLast] = (pY[nLast] - pY[nLast - 1]) / dWidth + (2 * dSolution + dPrevious) * dWidth;
    to.pC[nLast] = 3 * dSolution;
    to.pD[nLast] = to.pD[nLast - 1];
}

/// Computes the first nColumns columns of the group.
void ComputeGroup(const CKnots& knots, const CFactors& factors, const CGroup& group, int nColumns,
                  const CCoefficients* pTo) {
    constexpr int nTile = 256; // rows that stay in the cache from their solution to the last column's pieces
    const int nLast = knots.nPoints - 1;
    Eliminate(knots, factors, group);
    for (int nEnd = nLast; nEnd > 0; nEnd -= nTile) {
        const int nFirst = std::max(nEnd - nTile, 0);
        Substitute(factors, group, nFirst, nEnd);
        for (int k = 0; k < nColumns; ++k) {
            StorePieces(factors.pWidth + nFirst, group.columns[k] + nFirst, group.Row(nFirst) + k,
                        nEnd - nFirst, pTo[k].pB + nFirst, pTo[k].pC + nFirst, pTo[k].pD + nFirst);
        }
    }
    for (int k = 0; k < nColumns; ++k) {
        StoreEnd(factors, group, k, pTo[k], nLast);
    }
}

} // namespace

void ComputeSplines(int nPoints, const double* pX, std::span<const double* const> columns,
                    const CCoefficientColumns& coefficients) {
    const int nColumns = static_cast<int>(columns.size());
    const auto target = [&](int j) {
        return CCoefficients{coefficients.ppB[j], coefficients.ppC[j], coefficients.ppD[j]};
    };
    int nDone = 0;
    if (nPoints > 2 && nColumns > 1) {
        const CKnots knots = {nPoints, pX, nullptr};
        const auto pScratch = NewScratchArray<double>((3 + LANES) * std::int64_t{nPoints});
        const CFactors factors(knots, pScratch.get());
        CGroup group = {{}, factors.pDiagonal + nPoints};
        for (; nDone + 1 < nColumns; nDone += LANES) {
            // Lanes without a column follow the last one.
            CCoefficients to[LANES];
            for (int k = 0; k < LANES; ++k) {
                const int nColumn = std::min(nDone + k, nColumns - 1);
                group.columns[k] = columns[static_cast<std::size_t>(nColumn)];
                to[k] = target(nColumn);
            }
            ComputeGroup(knots, factors, group, std::min(LANES, nColumns - nDone), to);
        }
    }
    for (; nDone < nColumns; ++nDone) {
        const CCoefficients to = target(nDone);
        ComputeSpline({nPoints, pX, columns[nDone]}, to.pB, to.pC, to.pD);
    }
}

} // namespace tessara
