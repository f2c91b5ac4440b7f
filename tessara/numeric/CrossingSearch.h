#pragma once

#include <cstddef>
#include <limits>
#include <span>

#include "tessara/numeric/Polylines.h"
#include "tessara/numeric/Storage.h"

namespace tessara {

/// The most crossings that a table of two rows for each can hold.
constexpr std::size_t MAX_CROSSINGS = std::numeric_limits<int>::max() / 2;

/// Where segment nA of one polyline crosses segment nB of another.
struct CCrossing {
    int nA;
    int nB;
    double x, y;
};

/// Crossings one after another.
class CCrossingList {
public:
    std::size_t Size() const { return m_nSize; }
    std::span<CCrossing> All() { return {m_pCrossings.get(), m_nSize}; }
    std::span<const CCrossing> All() const { return {m_pCrossings.get(), m_nSize}; }

    /// Room behind the last crossing for nMore, of which Keep takes in the first.
    CCrossing* Room(std::size_t nMore) {
        if (m_nRoom - m_nSize < nMore) {
            Grow(nMore);
        }
        return m_pCrossings.get() + m_nSize;
    }
    void Keep(std::size_t nMore) { m_nSize += nMore; }

private:
    void Grow(std::size_t nMore);

    std::size_t m_nSize = 0;
    std::size_t m_nRoom = 0;
    CScratchArray<CCrossing> m_pCrossings;
};

/// Every crossing between segments of lines, in no order. Segment nA is the one of the smaller row; pairs of
/// one row, and neighbours in one part, are not looked at.
///
/// More than nMax crossings, and running out of memory, throw CMemoryException.
CCrossingList SearchSelfCrossings(const CPolylines& lines, std::size_t nMax = MAX_CROSSINGS);

/// Every crossing of a segment nA of a with a segment nB of b, in no order; errors as above.
CCrossingList SearchCrossings(const CPolylines& a, const CPolylines& b, std::size_t nMax = MAX_CROSSINGS);

/// The crossings in the order of nA and, for equal nA, of nB. All nA are less than nCountA.
CCrossingList SortedCrossings(CCrossingList crossings, int nCountA);

} // namespace tessara
