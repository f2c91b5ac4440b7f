#include <algorithm>
#include <cmath>

#include "tessara/numeric/PlaneGeometry.h"
#include "tessara/numeric/Storage.h"
#include "tessara/numeric/Table.h"

namespace {

double Distance(int nDimensions, const double* pA, const double* pB) {
    double dSum = 0;
    for (int k = 0; k < nDimensions; ++k) {
        dSum += (pA[k] - pB[k]) * (pA[k] - pB[k]);
    }
    return std::sqrt(dSum);
}

void CopyRow(int nDimensions, const CTable& table, int nRow, double* pPoint) {
    for (int k = 0; k < nDimensions; ++k) {
        pPoint[k] = table.m_ppData[k][nRow];
    }
}

} // namespace

int IsSegmentIntersectsSphere(int nDimensions, const double* pA, const double* pB, const double* pCenter,
                              double r) {
    if (std::equal(pA, pA + nDimensions, pB)) {
        return Distance(nDimensions, pA, pCenter) < r;
    }
    for (int k = 0; k < nDimensions; ++k) {
        const double dLow = pCenter[k] - r;
        const double dHigh = pCenter[k] + r;
        // Of the two ways to say it, the one that is false for NaN.
        if (!((pA[k] > dLow || pB[k] > dLow) && (pA[k] < dHigh || pB[k] < dHigh))) {
            return 0;
        }
    }
    return 1;
}

int IsTableNearPoint(int nDimensions, const CTable* pTable, const double* pPoint, double r) {
    const auto pFrom = tessara::NewScratchArray<double>(nDimensions);
    const auto pTo = tessara::NewScratchArray<double>(nDimensions);
    for (int i = 0; i + 1 < pTable->m_nPoints; ++i) {
        CopyRow(nDimensions, *pTable, i, pFrom.get());
        CopyRow(nDimensions, *pTable, i + 1, pTo.get());
        if (IsSegmentIntersectsSphere(nDimensions, pFrom.get(), pTo.get(), pPoint, r)) {
            return 1;
        }
    }
    return 0;
}
