#include "tessara/numeric/PartRecords.h"

#include <algorithm>
#include <cstdint>

#include "tessara/numeric/Storage.h"

namespace tessara {

void CPartRecords::Allocate(int nMaxParts) {
    ResizeArray(m_pParts, nMaxParts);
    m_nMaxParts = nMaxParts;
}

void CPartRecords::Begin(int nFirst, int nColor) {
    // No record is free when an earlier growth failed, or when the records are a copy of a caller's.
    Grow();
    m_pParts[m_nParts].nFirst = nFirst;
    m_pParts[m_nParts].nColor = nColor;
}

void CPartRecords::End(int nLast) {
    CCurvePartInfo& part = m_pParts[m_nParts];
    part.nPoints = nLast - part.nFirst + 1;
    ++m_nParts;
    Grow();
}

void CPartRecords::Grow() {
    if (m_nParts >= m_nMaxParts) {
        Allocate(AddCounts(m_nMaxParts, PARTS_GROWTH));
    }
}

CCurvePartInfo ClipPart(const CCurvePartInfo& part, int nPoints) {
    const std::int64_t nFirst = std::max(part.nFirst, 0);
    const std::int64_t nEnd = std::min<std::int64_t>(std::int64_t{part.nFirst} + part.nPoints, nPoints);
    if (nEnd <= nFirst) {
        return {0, 0, part.nColor};
    }
    return {static_cast<int>(nFirst), static_cast<int>(nEnd - nFirst), part.nColor};
}

} // namespace tessara
