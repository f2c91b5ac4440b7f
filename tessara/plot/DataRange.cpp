#include "tessara/plot/DataRange.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "tessara/platform/base/NoTraps.h"

namespace tessara {

namespace {

/// Values side by side; comparisons and choices work on each. Several such groups hide each other's waits.
constexpr int LANES = 2;
constexpr int GROUPS = 4;
using CLanes [[gnu::vector_size(LANES * sizeof(double))]] = double;

constexpr double LARGEST = std::numeric_limits<double>::max();

/// The bounds of one group.
struct CGroup {
    CLanes low;
    CLanes high;

    void Add(const double* pValues) {
        CLanes values;
        std::memcpy(&values, pValues, sizeof values);
        // What is infinite or not a number fails one of the two conditions.
        low = ((values < low) & (values >= -LARGEST)) ? values : low;
        high = ((values > high) & (values <= LARGEST)) ? values : high;
    }
};

} // namespace

void CDataRange::Add(const double* pValues, int nCount) {
    std::array<CGroup, GROUPS> groups;
    groups.fill({CLanes{} + m_dMin, CLanes{} + m_dMax});
    int i = 0;
    if (nCount >= GROUPS * LANES) {
        const CNoTraps noTraps; // vectors compare gaps, too, which are not numbers
        for (; i + GROUPS * LANES <= nCount; i += GROUPS * LANES) {
#pragma GCC unroll 4
            for (int nGroup = 0; nGroup < GROUPS; ++nGroup) {
                groups[nGroup].Add(pValues + i + nGroup * LANES);
            }
        }
    }
    for (const CGroup& group : groups) {
        for (int nLane = 0; nLane < LANES; ++nLane) {
            m_dMin = std::min(m_dMin, group.low[nLane]);
            m_dMax = std::max(m_dMax, group.high[nLane]);
        }
    }
    for (; i < nCount; ++i) {
        if (std::isfinite(pValues[i])) {
            m_dMin = std::min(m_dMin, pValues[i]);
            m_dMax = std::max(m_dMax, pValues[i]);
        }
    }
}

void CDataRange::Add(const CDataRange& range) {
    m_dMin = std::min(m_dMin, range.m_dMin);
    m_dMax = std::max(m_dMax, range.m_dMax);
}

void CDataRange::Choose(CHOOSESCALE& scale) const {
    scale.bOptions = 0;
    scale.dMax = IsEmpty() ? 0 : m_dMax;
    scale.dMin = IsEmpty() ? 0 : m_dMin;
    ChooseScale(&scale);
    if (!(scale.dLower < scale.dUpper)) {
        constexpr double ASIDE = 1e-9; // of the value: more than what counts as equal data
        CHOOSESCALE wider;
        wider.dMax = scale.dUpper + ASIDE * std::fabs(scale.dUpper);
        wider.dMin = scale.dUpper - ASIDE * std::fabs(scale.dUpper);
        ChooseScale(&wider);
        wider.dMax = scale.dMax;
        wider.dMin = scale.dMin;
        scale = wider;
    }
}

} // namespace tessara
