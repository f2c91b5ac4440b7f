#pragma once

#include <cmath>
#include <cstddef>

namespace tessara {

/// The last index i in [nFirst, nEnd) with pX[i] <= x, or nFirst when there is none.
///
/// The abscissae are non-decreasing; where several are equal the last of them is found. The number of steps
/// depends on nEnd - nFirst alone and no step branches on the data, so that random x cost no mispredicted
/// branches. Total: NaN x, NaN abscissae and unsorted ones give some index of the range.
///
/// REQUIRES: nFirst < nEnd
inline int FindInterval(const double* pX, int nFirst, int nEnd, double x) {
    const double* pBase = pX + nFirst;
    // The answer lies in [pBase, pBase + nCount); each step halves nCount, rounding up, whatever it finds.
    for (auto nCount = static_cast<std::size_t>(nEnd - nFirst); nCount > 1;) {
        const std::size_t nHalf = nCount / 2;
        const double* pMiddle = pBase + nHalf;
        pBase = std::islessequal(*pMiddle, x) ? pMiddle : pBase; // quiet for NaN
        nCount -= nHalf;
    }
    return static_cast<int>(pBase - pX);
}

} // namespace tessara
