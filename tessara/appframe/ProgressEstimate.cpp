#include "tessara/appframe/ProgressEstimate.h"

#include <algorithm>
#include <cmath>

namespace tessara {

namespace {

constexpr long MINUTE = 60;
constexpr long HOUR = 60 * MINUTE;
constexpr double LEAST_FRACTION = 0.01;
constexpr double LEAST_SECONDS = 3;
constexpr double LONGEST = 1000.0 * HOUR; ///< beyond this nobody wants a number

/// From how many seconds on a time is told in which unit.
struct CUnit {
    double dFrom;
    long nSeconds; ///< that it is rounded up to a multiple of
    long nCounted; ///< that the number counts
    const char* pszName;
};
constexpr CUnit UNITS[] = {{90.0 * MINUTE, HOUR, HOUR, "h"}, {50, MINUTE, MINUTE, "min"}, {0, 10, 1, "s"}};

const CUnit& UnitOf(double dSeconds) {
    return *std::find_if(std::begin(UNITS), std::end(UNITS),
                         [=](const CUnit& unit) { return dSeconds >= unit.dFrom; });
}

} // namespace

void CProgressEstimate::Begin(CTime now) {
    m_begin = now;
    m_nToldSeconds = 0;
}

std::string CProgressEstimate::Describe(double dFraction, CTime now) {
    if (!(dFraction >= LEAST_FRACTION)) {
        return {};
    }
    const double dDone = std::min(dFraction, 1.0);
    constexpr double PERCENT = 100;
    constexpr double ROUNDING = 1e-9; // 0.29 is 29 %
    std::string strText = std::to_string(static_cast<int>(dDone * PERCENT + ROUNDING)) + " % done";
    const double dElapsed = std::chrono::duration<double>(now - m_begin).count();
    const double dLeft = dElapsed * (1 - dDone) / dDone;
    if (dElapsed < LEAST_SECONDS || dDone >= 1 || dLeft > LONGEST) {
        return strText;
    }
    const CUnit& unit = UnitOf(dLeft);
    const long nLeft = std::max(1L, std::lround(std::ceil(dLeft / unit.nSeconds))) * unit.nSeconds;
    constexpr double MUCH_TOO_SHORT = 1.5;
    if (m_nToldSeconds == 0 || nLeft < m_nToldSeconds || dLeft > MUCH_TOO_SHORT * m_nToldSeconds) {
        m_nToldSeconds = nLeft;
    }
    const CUnit& told = UnitOf(m_nToldSeconds);
    return strText + ", about " + std::to_string(m_nToldSeconds / told.nCounted) + " " + told.pszName +
           " left";
}

} // namespace tessara
