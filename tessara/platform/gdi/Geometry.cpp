#include "tessara/platform/gdi/Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <utility>

void CRect::OffsetRect(int nX, int nY) {
    left += nX;
    right += nX;
    top += nY;
    bottom += nY;
}

void CRect::InflateRect(int nX, int nY) {
    left -= nX;
    right += nX;
    top -= nY;
    bottom += nY;
}

void CRect::NormalizeRect() {
    if (left > right) {
        std::swap(left, right);
    }
    if (top > bottom) {
        std::swap(top, bottom);
    }
}

int MulDiv(int nNumber, int nNumerator, int nDenominator) {
    if (nDenominator == 0) {
        return -1;
    }
    const std::int64_t nProduct = std::int64_t{nNumber} * nNumerator;
    const std::int64_t nDivisor = nDenominator;
    const bool bNegative = (nProduct < 0) != (nDivisor < 0);
    const std::int64_t nMagnitude = (std::abs(nProduct) + std::abs(nDivisor) / 2) / std::abs(nDivisor);
    if (nMagnitude > std::numeric_limits<int>::max()) {
        return -1;
    }
    return static_cast<int>(bNegative ? -nMagnitude : nMagnitude);
}

namespace tessara {

LONG ToCoordinate(double dValue) {
    constexpr double dLimit = MAX_COORDINATE;
    if (std::isnan(dValue)) {
        return 0;
    }
    return static_cast<LONG>(std::clamp(dValue, -dLimit, dLimit));
}

} // namespace tessara
