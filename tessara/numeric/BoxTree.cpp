#include "tessara/numeric/BoxTree.h"

#include <bit>
#include <span>

namespace tessara {
namespace {

/// Consecutive ranges of a few polylines lie near each other as they come.
constexpr std::size_t COHERENT_RUNS = 32;

/// Orders ranges so that those under one node lie near each other: halves by the median of the coordinate in
/// which they spread most. The left part has as many ranges as a full subtree.
void SortByMedians(std::span<CSegmentRange> ranges) {
    while (ranges.size() > CEightBoxes::COUNT) {
        CBox lows = EmptyBox();
        for (const CSegmentRange& range : ranges) {
            Extend(lows, range.box.low[0], range.box.low[1]);
        }
        const CLanes spread = lows.high - lows.low;
        const int nAxis = spread[1] > spread[0] ? 1 : 0;
        const std::size_t nLeft = std::bit_ceil(ranges.size()) / 2;
        std::nth_element(ranges.begin(), ranges.begin() + static_cast<std::ptrdiff_t>(nLeft), ranges.end(),
                         [nAxis](const CSegmentRange& a, const CSegmentRange& b) {
                             return a.box.low[nAxis] < b.box.low[nAxis];
                         });
        SortByMedians(ranges.first(nLeft));
        ranges = ranges.subspan(nLeft);
    }
}

} // namespace

CBoxTree::CBoxTree(const CPolylines& lines)
    : m_lines(lines), m_ranges(CutIntoRanges(lines)), m_bounds(EmptyBox()) {
    if (lines.Runs().size() > COHERENT_RUNS) {
        SortByMedians(m_ranges);
    }
    if (!m_ranges.empty()) {
        AddLevels();
    }
}

void CBoxTree::AddLevels() {
    std::vector<CBox> boxes =
        AddLevel(m_ranges.size(), [&](std::size_t i) -> const CBox& { return m_ranges[i].box; });
    while (boxes.size() > 1) {
        boxes = AddLevel(boxes.size(), [&](std::size_t i) -> const CBox& { return boxes[i]; });
    }
    m_bounds = boxes[0];
}

/// Puts a level of nodes above nBelow boxes; their boxes.
template <class BOX>
std::vector<CBox> CBoxTree::AddLevel(std::size_t nBelow, BOX box) {
    const std::size_t nNodes = (nBelow + FANOUT - 1) / FANOUT;
    std::vector<CEightBoxes>& level = m_levels.emplace_back(nNodes);
    std::vector<CBox> boxes(nNodes, EmptyBox());
    for (std::size_t i = 0; i < nBelow; ++i) {
        level[i / FANOUT].Set(static_cast<int>(i % FANOUT), box(i));
        Extend(boxes[i / FANOUT], box(i));
    }
    return boxes;
}

} // namespace tessara
