#include "tessara/plot/TickWalk.h"

#include "tessara/platform/base/NoTraps.h"

namespace tessara {

CTickWalk::CTickWalk(const CHOOSESCALE& scale) : m_scale(scale) {
    const CNoTraps noTraps; // a scale that a program made may have no step
    const double dTicks =
        std::floor((scale.dLastTick - scale.dFirstTick + 0.01 * scale.dStep) / scale.dStep) + 1;
    if (!(dTicks >= 1) || !std::isfinite(dTicks)) {
        return;
    }
    if (dTicks > MAX_TICKS) {
        m_dStride = std::ceil(dTicks / (MAX_TICKS - 1));
    }
    m_nCount = static_cast<int>(std::floor((dTicks - 1) / m_dStride)) + 1;
}

CTick CTickWalk::At(int nIndex) const {
    const CNoTraps noTraps; // nor two ends
    const double dSpan = m_scale.dUpper - m_scale.dLower;
    double dValue = nIndex * m_dStride * m_scale.dStep + m_scale.dFirstTick;
    if (0.25 * m_scale.dStep > std::fabs(dValue)) {
        dValue = 0.0;
    }
    const double dFraction = (dValue - m_scale.dLower) / dSpan;
    const double dHalf = 0.5 * m_scale.dStep / dSpan;
    return {dValue, dFraction, dFraction + dHalf};
}

} // namespace tessara
