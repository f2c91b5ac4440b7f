#include "tessara/numeric/SegmentPairs.h"

#include <algorithm>
#include <utility>

#include "tessara/numeric/SegmentCrossing.h"
#include "tessara/platform/base/Exception.h"

namespace tessara {
namespace {

constexpr int ALL_PAIRS = LEAF_SEGMENTS * LEAF_SEGMENTS;

CEightBoxes BoxesOf(const CPolylines& lines, const CLeaf& leaf) {
    const double* pX = lines.X() + leaf.nFirst;
    const double* pY = lines.Y() + leaf.nFirst;
    if (leaf.nCount == LEAF_SEGMENTS) {
        return {pX, pY};
    }
    CEightBoxes boxes;
    for (int i = 0; i < leaf.nCount; ++i) {
        const CSegment segment = lines.Segment(leaf.nFirst + i);
        boxes.Set(i, CornerBox(segment.x1, segment.y1, segment.x2, segment.y2));
    }
    return boxes;
}

} // namespace

CCrossingList CSegmentPairs::Take() {
    CompareLeaves();
    TestSegments();
    return std::move(m_crossings);
}

/// The pairs of segments whose boxes overlap.
CPairBits CSegmentPairs::Overlapping(const CLeafPair& pair) const {
    const CEightBoxes boxesA = BoxesOf(m_a, pair.a);
    if (m_bSelf && pair.a.nFirst == pair.b.nFirst) {
        return OverlappingPairs(boxesA, boxesA) & LATER_PAIRS;
    }
    return OverlappingPairs(boxesA, BoxesOf(m_b, pair.b));
}

void CSegmentPairs::CompareLeaves() {
    for (int k = 0; k < m_nLeaves; ++k) {
        const CLeafPair& pair = m_leaves[k];
        if (m_nSegments > SEGMENT_PAIRS - ALL_PAIRS) {
            TestSegments();
        }
        CSegmentPair* pTo = m_segments + m_nSegments;
        ForEachPair(Overlapping(pair), [&](int i, int j) {
            *pTo++ = {pair.a.nFirst + i, pair.b.nFirst + j};
        });
        m_nSegments = static_cast<int>(pTo - m_segments);
    }
    m_nLeaves = 0;
}

/// Every result is written, and overwritten by the next one unless it counts: which ones do cannot be
/// foreseen, and a wrong guess would cost more than the write.
void CSegmentPairs::TestSegments() {
    CCrossing* pTo = m_crossings.Room(static_cast<std::size_t>(m_nSegments));
    CCrossing* const pBegin = pTo;
    for (int k = 0; k < m_nSegments; ++k) {
        CCrossing crossing{m_segments[k].nA, m_segments[k].nB, 0, 0};
        const bool bCounts = !m_bSelf || PutInOrder(crossing);
        const bool bCrosses =
            Cross(m_a.Segment(crossing.nA), m_b.Segment(crossing.nB), crossing.x, crossing.y);
        *pTo = crossing;
        pTo += bCounts & bCrosses;
    }
    m_crossings.Keep(static_cast<std::size_t>(pTo - pBegin));
    m_nSegments = 0;
    if (m_crossings.Size() > m_nMax) {
        AfxThrowMemoryException();
    }
}

/// Puts the segment of the smaller row first; false for pairs that do not count.
bool CSegmentPairs::PutInOrder(CCrossing& crossing) const {
    const int nLow = std::min(crossing.nA, crossing.nB);
    const int nHigh = std::max(crossing.nA, crossing.nB);
    const int nRowLow = m_a.Row(nLow), nRowHigh = m_a.Row(nHigh);
    const bool bInOrder = nRowLow <= nRowHigh;
    crossing.nA = bInOrder ? nLow : nHigh;
    crossing.nB = bInOrder ? nHigh : nLow;
    // Numbers are consecutive only within one part.
    return (nHigh != nLow + 1) & (nRowLow != nRowHigh);
}

} // namespace tessara
