#pragma once

#include <cstddef>

#include "tessara/numeric/CrossingSearch.h"
#include "tessara/numeric/Polylines.h"
#include "tessara/numeric/SegmentRanges.h"

namespace tessara {

/// Finds the crossings among pairs of leaves. Pairs wait until there are many, first those of leaves, then
/// those of segments: no step depends on the one before, so that the processor goes on with the next pairs
/// while it waits for memory or a division.
class CSegmentPairs {
public:
    /// Of pairs between two sets of polylines.
    CSegmentPairs(const CPolylines& a, const CPolylines& b, std::size_t nMax)
        : m_a(a), m_b(b), m_bSelf(false), m_nMax(nMax) {}

    /// Of pairs within one: the first segment is that of the smaller row, and pairs of one row, and
    /// neighbours in one part, do not count.
    CSegmentPairs(const CPolylines& lines, std::size_t nMax)
        : m_a(lines), m_b(lines), m_bSelf(true), m_nMax(nMax) {}

    /// All pairs of a segment of one leaf and a segment of the other. Within one set of polylines two leaves
    /// have no segment in common or are the same, whose pairs count once.
    void Add(const CLeaf& a, const CLeaf& b) {
        if (m_nLeaves == LEAF_PAIRS) {
            CompareLeaves();
        }
        m_leaves[m_nLeaves++] = {a, b};
    }

    /// What was found; nothing can be added after this.
    CCrossingList Take();

private:
    static constexpr int LEAF_PAIRS = 128;
    static constexpr int SEGMENT_PAIRS = 1024;

    struct CLeafPair {
        CLeaf a, b;
    };
    struct CSegmentPair {
        int nA, nB;
    };

    CPairBits Overlapping(const CLeafPair& pair) const;
    void CompareLeaves();
    void TestSegments();
    bool PutInOrder(CCrossing& crossing) const;

    const CPolylines& m_a;
    const CPolylines& m_b;
    const bool m_bSelf;
    const std::size_t m_nMax;
    int m_nLeaves = 0;
    int m_nSegments = 0;
    CLeafPair m_leaves[LEAF_PAIRS];
    CSegmentPair m_segments[SEGMENT_PAIRS];
    CCrossingList m_crossings;
};

} // namespace tessara
