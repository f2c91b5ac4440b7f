#include "tessara/dialogs/CurveAcceptance.h"

#include <algorithm>
#include <cmath>

namespace tessara {

namespace {

constexpr int MIN_POINTS = 100;
constexpr double MAX_ORDINATE = 5.0;
constexpr double MAX_STEP = 0.01; ///< of a column's range

// Comparisons with what may not be a number are functions: operators would trap.

bool IsInRange(const double* pY, int nPoints) {
    return std::all_of(pY, pY + nPoints,
                       [](double y) { return std::isgreater(y, 0) && std::islessequal(y, MAX_ORDINATE); });
}

bool IsSmooth(const double* pY, int nPoints) {
    const auto [pMin, pMax] = std::minmax_element(pY, pY + nPoints);
    const double dLimit = MAX_STEP * std::abs(*pMax - *pMin);
    return std::adjacent_find(pY, pY + nPoints, [dLimit](double y, double yNext) {
               return std::abs(yNext - y) > dLimit;
           }) == pY + nPoints;
}

} // namespace

bool IsAcceptable(const CMultiCurve& curve) {
    const int nPoints = curve.m_nPoints;
    return nPoints >= MIN_POINTS &&
           std::all_of(curve.m_ppY, curve.m_ppY + curve.m_nDimensions, [nPoints](const double* pY) {
               return IsInRange(pY, nPoints) && IsSmooth(pY, nPoints);
           });
}

} // namespace tessara
