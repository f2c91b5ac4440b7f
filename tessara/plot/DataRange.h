#pragma once

#include <algorithm>
#include <cmath>

#include "tessara/plot/ChooseScale.h"

namespace tessara {

/// The smallest and the largest of the finite values that were added.
class CDataRange {
public:
    void Add(const double* pValues, int nCount) {
        for (int i = 0; i < nCount; ++i) {
            Add(pValues[i]);
        }
    }

    void Add(double dValue) {
        if (std::isfinite(dValue)) {
            m_dMin = m_bEmpty ? dValue : std::min(m_dMin, dValue);
            m_dMax = m_bEmpty ? dValue : std::max(m_dMax, dValue);
            m_bEmpty = false;
        }
    }

    /// Chooses an automatic scale for the range; without any value, for 0.
    void Choose(CHOOSESCALE& scale) const {
        scale.bOptions = 0;
        scale.dMax = m_dMax;
        scale.dMin = m_dMin;
        ChooseScale(&scale);
    }

private:
    double m_dMin = 0;
    double m_dMax = 0;
    bool m_bEmpty = true;
};

/// Makes an axis span exactly its data range; ticks stay. An axis needs two ends: equal data leave it as it
/// is.
inline void FitToData(CHOOSESCALE& scale) {
    if (scale.dMin < scale.dMax) {
        scale.dUpper = scale.dMax;
        scale.dLower = scale.dMin;
    }
}

} // namespace tessara
