#pragma once

#include <cmath>

#include "tessara/plot/ChooseScale.h"

namespace tessara {

/// One labelled tick of an axis.
struct CTick {
    double dValue;         ///< exactly 0 where rounding would leave a residue
    double dFraction;      ///< place on the axis, 0 at its lower and 1 at its upper end
    double dMinorFraction; ///< that of the minor tick half a step further
};

/// The ticks of an axis from the first to the last labelled one. Total: an axis whose ticks cannot be counted
/// has none, and one with more than MAX_TICKS is walked in larger steps.
class TESSARA_API CTickWalk {
public:
    explicit CTickWalk(const CHOOSESCALE& scale);

    int GetCount() const { return m_nCount; }
    CTick At(int nIndex) const;

    static constexpr int MAX_TICKS = 1000;

private:
    CHOOSESCALE m_scale;
    int m_nCount = 0;
    double m_dStride = 1.0; ///< steps between the ticks that are walked
};

/// True when a fraction lies on the axis, both ends included.
inline bool IsOnAxis(double dFraction) {
    return std::isgreaterequal(dFraction, 0.0) && std::islessequal(dFraction, 1.0); // quiet for NaN
}

} // namespace tessara
