#pragma once

#include <limits>

#include "tessara/plot/ChooseScale.h"

namespace tessara {

/// The smallest and the largest of the finite values that were added.
class CDataRange {
public:
    void Add(const double* pValues, int nCount);
    void Add(double dValue) { Add(&dValue, 1); }
    void Add(const CDataRange& range);

    /// Chooses an automatic scale for the range; without any value, for 0. A value so large that one more
    /// makes no difference gets an axis with ticks, too.
    void Choose(CHOOSESCALE& scale) const;

private:
    bool IsEmpty() const { return m_dMin > m_dMax; }

    double m_dMin = std::numeric_limits<double>::infinity();
    double m_dMax = -std::numeric_limits<double>::infinity();
};

/// Makes an axis span exactly a zoom window's side; its ticks are chosen as for data of that range.
inline void ChooseZoomedScale(CHOOSESCALE& scale, double dMin, double dMax) {
    CDataRange range;
    range.Add(dMin);
    range.Add(dMax);
    range.Choose(scale);
    scale.dUpper = dMax;
    scale.dLower = dMin;
}

/// Makes an axis span exactly its data range; ticks stay. An axis needs two ends: equal data leave it as it
/// is.
inline void FitToData(CHOOSESCALE& scale) {
    if (scale.dMin < scale.dMax) {
        scale.dUpper = scale.dMax;
        scale.dLower = scale.dMin;
    }
}

} // namespace tessara
