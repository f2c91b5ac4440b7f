#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

#include "tessara/numeric/SegmentRanges.h"

namespace tessara {

/// The ranges of segments of some polylines under a tree of boxes, eight children to a node.
///
/// The tree is implicit: the children of node n of a level are the nodes 8 n to 8 n + 7 of the level below,
/// as far as there are so many, and those of level 0 are ranges. Building takes one pass over the segments
/// and, for m ranges of many short parts, m log m steps to sort them by place.
class CBoxTree {
public:
    explicit CBoxTree(const CPolylines& lines);

    const CPolylines& Lines() const { return m_lines; }
    const CSegmentRange& Range(int nRange) const { return m_ranges[static_cast<std::size_t>(nRange)]; }
    /// The level of the one node above all; negative when there is no range.
    int RootLevel() const { return static_cast<int>(m_levels.size()) - 1; }
    /// The box around everything.
    const CBox& Bounds() const { return m_bounds; }
    /// The boxes of a node's children.
    const CEightBoxes& Children(int nLevel, int nNode) const {
        return m_levels[static_cast<std::size_t>(nLevel)][static_cast<std::size_t>(nNode)];
    }
    int ChildCount(int nLevel, int nNode) const {
        const std::size_t nBelow =
            nLevel == 0 ? m_ranges.size() : m_levels[static_cast<std::size_t>(nLevel) - 1].size();
        return std::min(FANOUT, static_cast<int>(nBelow) - FANOUT * nNode);
    }
    static int Child(int nNode, int i) { return FANOUT * nNode + i; }

private:
    static constexpr int FANOUT = CEightBoxes::COUNT;

    void AddLevels();
    template <class BOX>
    std::vector<CBox> AddLevel(std::size_t nBelow, BOX box);

    const CPolylines& m_lines;
    std::vector<CSegmentRange> m_ranges;
    std::vector<std::vector<CEightBoxes>> m_levels;
    CBox m_bounds;
};

} // namespace tessara
