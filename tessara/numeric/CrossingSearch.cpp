#include "tessara/numeric/CrossingSearch.h"

#include <algorithm>
#include <cstdint>

#include "tessara/numeric/BoxTree.h"
#include "tessara/numeric/SegmentPairs.h"

namespace tessara {
namespace {

constexpr int SIDE = CEightBoxes::COUNT;

/// The leaves of a range: itself, or the up to eight monotone ones of a longer chain.
class CLeaves {
public:
    CLeaves(const CPolylines& lines, const CSegmentRange& range) : m_range(range) {
        if (range.IsLeaf()) {
            m_boxes = CEightBoxes(range.box);
            return;
        }
        // The ends are likely to come from slow memory: all are read at once.
        double x[SIDE + 1], y[SIDE + 1];
        for (int i = 0; i <= SIDE; ++i) {
            const int nEnd = range.nFirst + std::min(i * LEAF_SEGMENTS, range.nCount);
            x[i] = lines.X()[nEnd];
            y[i] = lines.Y()[nEnd];
        }
        m_boxes = CEightBoxes(x, y);
        for (int i = (range.nCount - 1) / LEAF_SEGMENTS + 1; i < SIDE; ++i) {
            m_boxes.Unset(i);
        }
    }

    const CEightBoxes& Boxes() const { return m_boxes; }
    CLeaf Leaf(int i) const {
        const int nStart = i * LEAF_SEGMENTS;
        return {m_range.nFirst + nStart, std::min(LEAF_SEGMENTS, m_range.nCount - nStart)};
    }

private:
    const CSegmentRange& m_range;
    CEightBoxes m_boxes;
};

static_assert(MAX_CHAIN_SEGMENTS == SIDE * LEAF_SEGMENTS);

/// Walks two trees, or one within itself, down to pairs of leaves.
class CSearch {
public:
    CSearch(const CBoxTree& a, const CBoxTree& b, std::size_t nMax)
        : m_a(a), m_b(b), m_bSelf(false), m_pairs(a.Lines(), b.Lines(), nMax) {}
    CSearch(const CBoxTree& tree, std::size_t nMax)
        : m_a(tree), m_b(tree), m_bSelf(true), m_pairs(tree.Lines(), nMax) {}

    /// All pairs within one node of the one tree.
    void JoinWithin(int nLevel, int nNode) {
        for (int i = 0; i < m_a.ChildCount(nLevel, nNode); ++i) {
            const int nChild = CBoxTree::Child(nNode, i);
            if (nLevel > 0) {
                JoinWithin(nLevel - 1, nChild);
            } else if (m_a.Range(nChild).kind == CSegmentRange::mixed) {
                const CLeaf leaf = m_a.Range(nChild).Leaf();
                m_pairs.Add(leaf, leaf);
            }
        }
        const CEightBoxes& boxes = m_a.Children(nLevel, nNode);
        JoinChildren(nLevel, nNode, nNode, OverlappingPairs(boxes, boxes) & LATER_PAIRS);
    }

    /// All pairs of a node of the first tree and one of the second. Nodes of different levels are those above
    /// a root of the other tree and this root.
    void Join(int nLevelA, int nNodeA, int nLevelB, int nNodeB) {
        const CEightBoxes& boxesA = m_a.Children(nLevelA, nNodeA);
        const CEightBoxes& boxesB = m_b.Children(nLevelB, nNodeB);
        if (nLevelA > nLevelB) {
            ForEachPair(OverlappingPairs(boxesA, CEightBoxes(m_b.Bounds())),
                        [&](int i, int) { Join(nLevelA - 1, CBoxTree::Child(nNodeA, i), nLevelB, nNodeB); });
        } else if (nLevelA < nLevelB) {
            ForEachPair(OverlappingPairs(CEightBoxes(m_a.Bounds()), boxesB),
                        [&](int, int j) { Join(nLevelA, nNodeA, nLevelB - 1, CBoxTree::Child(nNodeB, j)); });
        } else {
            JoinChildren(nLevelA, nNodeA, nNodeB, OverlappingPairs(boxesA, boxesB));
        }
    }

    CCrossingList TakeCrossings() { return m_pairs.Take(); }

private:
    /// The given pairs of children, which overlap, of two nodes of one level.
    void JoinChildren(int nLevel, int nNodeA, int nNodeB, CPairBits nPairs) {
        ForEachPair(nPairs, [&](int i, int j) {
            const int nChildA = CBoxTree::Child(nNodeA, i);
            const int nChildB = CBoxTree::Child(nNodeB, j);
            if (nLevel > 0) {
                Join(nLevel - 1, nChildA, nLevel - 1, nChildB);
            } else {
                JoinRanges(m_a.Range(nChildA), m_b.Range(nChildB));
            }
        });
    }

    void JoinRanges(const CSegmentRange& a, const CSegmentRange& b) {
        const bool bBothPoints = a.kind == CSegmentRange::point && b.kind == CSegmentRange::point;
        const bool bOneChain = m_bSelf && ((b.bContinues && a.nFirst + a.nCount == b.nFirst) ||
                                           (a.bContinues && b.nFirst + b.nCount == a.nFirst));
        if (bBothPoints || bOneChain) {
            return;
        }
        if (a.IsLeaf() && b.IsLeaf()) {
            m_pairs.Add(a.Leaf(), b.Leaf());
            return;
        }
        const CLeaves leavesA(m_a.Lines(), a);
        const CLeaves leavesB(m_b.Lines(), b);
        ForEachPair(OverlappingPairs(leavesA.Boxes(), leavesB.Boxes()),
                    [&](int i, int j) { m_pairs.Add(leavesA.Leaf(i), leavesB.Leaf(j)); });
    }

    const CBoxTree& m_a;
    const CBoxTree& m_b;
    const bool m_bSelf;
    CSegmentPairs m_pairs;
};

} // namespace

void CCrossingList::Grow(std::size_t nMore) {
    const std::size_t nRoom = std::max(2 * m_nRoom, m_nSize + nMore);
    ResizeScratchArray(m_pCrossings, static_cast<std::int64_t>(nRoom));
    m_nRoom = nRoom;
}

CCrossingList SearchSelfCrossings(const CPolylines& lines, std::size_t nMax) {
    const CBoxTree tree(lines);
    CSearch search(tree, nMax);
    if (tree.RootLevel() >= 0) {
        search.JoinWithin(tree.RootLevel(), 0);
    }
    return search.TakeCrossings();
}

CCrossingList SearchCrossings(const CPolylines& a, const CPolylines& b, std::size_t nMax) {
    const CBoxTree treeA(a);
    const CBoxTree treeB(b);
    CSearch search(treeA, treeB, nMax);
    if (treeA.RootLevel() >= 0 && treeB.RootLevel() >= 0) {
        search.Join(treeA.RootLevel(), 0, treeB.RootLevel(), 0);
    }
    return search.TakeCrossings();
}

} // namespace tessara
