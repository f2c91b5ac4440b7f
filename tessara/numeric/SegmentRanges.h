#pragma once

#include <vector>

#include "tessara/numeric/EightBoxes.h"
#include "tessara/numeric/Polylines.h"

namespace tessara {

/// The most segments of a leaf.
constexpr int LEAF_SEGMENTS = CEightBoxes::COUNT;
/// The most segments of a monotone range, which are eight leaves: shorter ranges have tighter boxes, longer
/// ones are fewer.
constexpr int MAX_CHAIN_SEGMENTS = CEightBoxes::COUNT * LEAF_SEGMENTS;

/// Consecutive segments of one part whose boxes are compared with those of others all at once.
struct CLeaf {
    int nFirst;
    int nCount;
};

/// Consecutive segments of one part and a box around them.
struct CSegmentRange {
    enum Kind {
        mixed, ///< up to LEAF_SEGMENTS segments of any kind
        chain, ///< monotone in x and in y and nowhere at rest: no two of its segments meet unless neighbours
        point  ///< segments of length zero: no two of them cross, nor do those of two such ranges
    };

    bool IsLeaf() const { return nCount <= LEAF_SEGMENTS; }
    CLeaf Leaf() const { return {nFirst, nCount}; }

    CBox box;
    int nFirst;
    int nCount;
    Kind kind;
    bool bContinues; ///< this chain and the range that ends where it begins are one chain that was cut
};

/// The box around the segments nFirst to nFirst + nCount - 1 of a monotone range.
inline CBox ChainBox(const CPolylines& lines, int nFirst, int nCount) {
    const int nEnd = nFirst + nCount;
    return CornerBox(lines.X()[nFirst], lines.Y()[nFirst], lines.X()[nEnd], lines.Y()[nEnd]);
}

/// Cuts all segments into ranges, as long as they can be, in one pass. Segments that no box can hold (NaN)
/// may be left out: nothing crosses them.
std::vector<CSegmentRange> CutIntoRanges(const CPolylines& lines);

} // namespace tessara
