#include "tessara/numeric/CrossingSearch.h"

#include <bit>
#include <cstdint>
#include <utility>

#include "tessara/numeric/BoxTree.h"
#include "tessara/numeric/SegmentCrossing.h"
#include "tessara/platform/base/Exception.h"

namespace tessara {
namespace {

constexpr int PIECES = CEightBoxes::COUNT;
static_assert(PIECES == LEAF_SEGMENTS);

/// A range of segments on the way down: its stride is the length of its pieces, 1, 8, 64 and so on.
struct CStretch {
    CBox box;
    int nFirst;
    int nCount;
    int nStride;

    bool IsLeaf() const { return nStride == 1; }
};

CStretch Stretch(const CSegmentRange& range) {
    int nStride = 1;
    while (range.nCount > std::int64_t{PIECES} * nStride) {
        nStride *= PIECES;
    }
    return {range.box, range.nFirst, range.nCount, nStride};
}

/// The boxes of the up to PIECES pieces of a stretch, coordinate by coordinate. The pieces of a leaf are its
/// segments; those of a longer stretch are monotone.
class CPieces {
public:
    CPieces(const CPolylines& lines, const CStretch& stretch) : m_stretch(stretch) {
        const double* pX = lines.X() + stretch.nFirst;
        const double* pY = lines.Y() + stretch.nFirst;
        if (stretch.IsLeaf() && stretch.nCount == PIECES) {
            m_boxes = CEightBoxes(pX, pY);
            return;
        }
        // The ends are likely to come from slow memory: all are read at once.
        double x[PIECES + 1], y[PIECES + 1];
        for (int i = 0; i <= PIECES; ++i) {
            const auto nEnd = std::min<std::int64_t>(std::int64_t{i} * stretch.nStride, stretch.nCount);
            x[i] = pX[nEnd];
            y[i] = pY[nEnd];
        }
        m_boxes = CEightBoxes(x, y);
        m_nValid = (1U << ((stretch.nCount - 1) / stretch.nStride + 1)) - 1;
    }

    /// The pieces whose boxes overlap a box, as bits.
    unsigned Overlapping(const CBox& box) const { return m_boxes.Overlapping(box) & m_nValid; }
    CBox Box(int i) const { return m_boxes.Box(i); }

    /// One piece of a stretch that is not a leaf.
    CStretch Piece(int i) const {
        const int nStart = i * m_stretch.nStride;
        return {Box(i), m_stretch.nFirst + nStart, std::min(m_stretch.nStride, m_stretch.nCount - nStart),
                m_stretch.nStride / PIECES};
    }

private:
    const CStretch& m_stretch;
    CEightBoxes m_boxes;
    unsigned m_nValid = (1U << PIECES) - 1;
};

/// Calls action(i) for every bit that is set.
template <class ACTION>
void ForEachBit(unsigned nBits, ACTION action) {
    for (; nBits != 0; nBits &= nBits - 1) {
        action(std::countr_zero(nBits));
    }
}

/// Walks two trees, or one tree twice, and collects the crossings.
class CSearch {
public:
    CSearch(const CBoxTree& a, const CBoxTree& b, std::size_t nMax)
        : m_a(a), m_b(b), m_bSelf(&a == &b), m_nMax(nMax) {}

    /// All pairs within one node of the one tree.
    void JoinWithin(int nLevel, int nNode) {
        const CEightBoxes& boxes = m_a.Children(nLevel, nNode);
        for (int i = 0; i < m_a.ChildCount(nLevel, nNode); ++i) {
            const int nChild = CBoxTree::Child(nNode, i);
            if (nLevel == 0) {
                JoinWithinRange(m_a.Range(nChild));
            } else {
                JoinWithin(nLevel - 1, nChild);
            }
            const unsigned nLater = ~0U << (i + 1);
            ForEachBit(boxes.Overlapping(boxes.Box(i)) & nLater,
                       [&](int j) { JoinChildren(nLevel, nChild, CBoxTree::Child(nNode, j), boxes.Box(j)); });
        }
    }

    /// All pairs of a node of the first tree and one of the second, which lies in a box and overlaps.
    void Join(int nLevelA, int nNodeA, int nLevelB, int nNodeB, const CBox& boxB) {
        if (nLevelB > nLevelA) {
            const CEightBoxes& boxes = m_b.Children(nLevelB, nNodeB);
            for (int j = 0; j < m_b.ChildCount(nLevelB, nNodeB); ++j) {
                Join(nLevelA, nNodeA, nLevelB - 1, CBoxTree::Child(nNodeB, j), boxes.Box(j));
            }
            return;
        }
        const CEightBoxes& boxesA = m_a.Children(nLevelA, nNodeA);
        ForEachBit(boxesA.Overlapping(boxB), [&](int i) {
            const int nChildA = CBoxTree::Child(nNodeA, i);
            if (nLevelA > nLevelB) {
                Join(nLevelA - 1, nChildA, nLevelB, nNodeB, boxB);
                return;
            }
            const CEightBoxes& boxesB = m_b.Children(nLevelB, nNodeB);
            ForEachBit(boxesB.Overlapping(boxesA.Box(i)), [&](int j) {
                JoinChildren(nLevelA, nChildA, CBoxTree::Child(nNodeB, j), boxesB.Box(j));
            });
        });
    }

    std::vector<CCrossing> m_crossings;

private:
    /// All pairs of two children, which overlap, of nodes of one level.
    void JoinChildren(int nLevel, int nA, int nB, const CBox& boxB) {
        if (nLevel == 0) {
            JoinRanges(m_a.Range(nA), m_b.Range(nB));
        } else {
            Join(nLevel - 1, nA, nLevel - 1, nB, boxB);
        }
    }

    void JoinRanges(const CSegmentRange& a, const CSegmentRange& b) {
        const bool bBothPoints = a.kind == CSegmentRange::point && b.kind == CSegmentRange::point;
        const bool bOneChain = m_bSelf && ((b.bContinues && a.nFirst + a.nCount == b.nFirst) ||
                                           (a.bContinues && b.nFirst + b.nCount == a.nFirst));
        if (!bBothPoints && !bOneChain) {
            JoinStretches(Stretch(a), Stretch(b));
        }
    }

    /// All pairs of two stretches, which overlap: divides the one of longer pieces, or both.
    void JoinStretches(const CStretch& a, const CStretch& b) {
        if (a.nStride > b.nStride) {
            const CPieces pieces(m_a.Lines(), a);
            ForEachBit(pieces.Overlapping(b.box), [&](int i) { JoinStretches(pieces.Piece(i), b); });
        } else if (a.nStride < b.nStride) {
            const CPieces pieces(m_b.Lines(), b);
            ForEachBit(pieces.Overlapping(a.box), [&](int i) { JoinStretches(a, pieces.Piece(i)); });
        } else {
            JoinPieces(a, b);
        }
    }

    void JoinPieces(const CStretch& a, const CStretch& b) {
        const CPieces piecesB(m_b.Lines(), b);
        const unsigned nNearB = piecesB.Overlapping(a.box);
        if (nNearB == 0) {
            return;
        }
        const CPieces piecesA(m_a.Lines(), a);
        ForEachBit(piecesA.Overlapping(b.box), [&](int i) {
            ForEachBit(piecesB.Overlapping(piecesA.Box(i)) & nNearB, [&](int j) {
                if (a.IsLeaf()) {
                    TestPair(a.nFirst + i, b.nFirst + j);
                } else {
                    JoinStretches(piecesA.Piece(i), piecesB.Piece(j));
                }
            });
        });
    }

    void JoinWithinRange(const CSegmentRange& range) {
        if (range.kind != CSegmentRange::mixed) {
            return;
        }
        const CStretch leaf = Stretch(range);
        const CPieces pieces(m_a.Lines(), leaf);
        for (int i = 0; i < range.nCount - 2; ++i) {
            const unsigned nLater = ~0U << (i + 2);
            ForEachBit(pieces.Overlapping(pieces.Box(i)) & nLater,
                       [&](int j) { TestSelf(range.nFirst + i, range.nFirst + j); });
        }
    }

    void TestPair(int nA, int nB) {
        if (m_bSelf) {
            TestSelf(nA, nB);
        } else {
            Test(nA, nB);
        }
    }

    void TestSelf(int n1, int n2) {
        const int nA = std::min(n1, n2);
        const int nB = std::max(n1, n2);
        const CPolylines& lines = m_a.Lines();
        // Numbers are consecutive only within one part.
        if (nB == nA + 1 || lines.Row(nA) == lines.Row(nB)) {
            return;
        }
        if (lines.Row(nA) < lines.Row(nB)) {
            Test(nA, nB);
        } else {
            Test(nB, nA);
        }
    }

    void Test(int nA, int nB) {
        CCrossing crossing{nA, nB, 0, 0};
        if (!CrossWithinBoxes(m_a.Lines().Segment(nA), m_b.Lines().Segment(nB), crossing.x, crossing.y)) {
            return;
        }
        if (m_crossings.size() >= m_nMax) {
            AfxThrowMemoryException();
        }
        m_crossings.push_back(crossing);
    }

    const CBoxTree& m_a;
    const CBoxTree& m_b;
    const bool m_bSelf;
    const std::size_t m_nMax;
};

} // namespace

std::vector<CCrossing> SearchSelfCrossings(const CPolylines& lines, std::size_t nMax) {
    const CBoxTree tree(lines);
    CSearch search(tree, tree, nMax);
    if (tree.RootLevel() >= 0) {
        search.JoinWithin(tree.RootLevel(), 0);
    }
    return std::move(search.m_crossings);
}

std::vector<CCrossing> SearchCrossings(const CPolylines& a, const CPolylines& b, std::size_t nMax) {
    const CBoxTree treeA(a);
    const CBoxTree treeB(b);
    CSearch search(treeA, treeB, nMax);
    if (treeA.RootLevel() >= 0 && treeB.RootLevel() >= 0) {
        search.Join(treeA.RootLevel(), 0, treeB.RootLevel(), 0, treeB.Bounds());
    }
    return std::move(search.m_crossings);
}

} // namespace tessara
