#include "tessara/numeric/Storage.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tessara {

namespace {

/// The operator would raise a floating-point exception for what is not a number.
bool Less(double a, double b) {
    return std::isless(a, b);
}

} // namespace

int AddCounts(int nCount, int nMore) {
    int nSum = 0;
    if (__builtin_add_overflow(nCount, nMore, &nSum)) {
        AfxThrowMemoryException();
    }
    return nSum;
}

void ResizePoints(int& nPoints, double*& pX, double*& pY, int nNewPoints) {
    ResizeArray(pX, nNewPoints);
    nPoints = std::min(nPoints, nNewPoints);
    ResizeArray(pY, nNewPoints);
    nPoints = nNewPoints;
}

void ResizeColumnArray(double**& ppColumns, int nColumns, int nNewColumns) {
    const int nKept = ppColumns ? nColumns : 0;
    ResizeArray(ppColumns, nNewColumns);
    if (nNewColumns > nKept) {
        std::fill(ppColumns + nKept, ppColumns + nNewColumns, nullptr);
    }
}

void ForgetColumns(double** ppColumns, int nColumns) {
    for (int j = 0; j < nColumns; ++j) {
        ppColumns[j] = nullptr;
    }
}

void ResizeColumns(double** ppColumns, int nColumns, int& nPoints, int nNewPoints) {
    if (nNewPoints < 0) {
        AfxThrowMemoryException();
    }
    for (int j = 0; j < nColumns; ++j) {
        ResizeArray(ppColumns[j], nNewPoints);
        nPoints = std::min(nPoints, nNewPoints);
    }
    nPoints = nNewPoints;
}

void FreeColumns(double** ppColumns, int nColumns) {
    for (int j = 0; j < nColumns; ++j) {
        ReleaseArray(ppColumns[j]);
    }
}

double MinValue(const double* pValues, int nCount) {
    if (nCount < 1) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return *std::min_element(pValues, pValues + nCount, Less);
}

double MaxValue(const double* pValues, int nCount) {
    if (nCount < 1) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    return *std::max_element(pValues, pValues + nCount, Less);
}

} // namespace tessara
