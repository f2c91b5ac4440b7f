#include <boost/function_output_iterator.hpp>
#include <boost/geometry.hpp>
#include <boost/geometry/geometries/box.hpp>
#include <boost/geometry/geometries/point.hpp>
#include <boost/geometry/index/rtree.hpp>

#include "bench/CrossingPeers.h"

namespace bench {
namespace {

namespace bg = boost::geometry;
using CTreePoint = bg::model::point<double, 2, bg::cs::cartesian>;
using CTreeBox = bg::model::box<CTreePoint>;
using CEntry = std::pair<CTreeBox, std::size_t>;
using CTree = bg::index::rtree<CEntry, bg::index::rstar<8>>;

CTreeBox BoxOf(const CRowSegment& item) {
    const tessara::CBounds bounds(item.segment);
    return {CTreePoint(bounds.dMinX, bounds.dMinY), CTreePoint(bounds.dMaxX, bounds.dMaxY)};
}

/// Building from a range packs the tree.
CTree PackedTree(const std::vector<CRowSegment>& segments) {
    std::vector<CEntry> entries;
    entries.reserve(segments.size());
    for (std::size_t i = 0; i < segments.size(); ++i) {
        entries.emplace_back(BoxOf(segments[i]), i);
    }
    return CTree(entries.begin(), entries.end());
}

template <class VISITOR>
void Query(const CTree& tree, const CRowSegment& item, VISITOR visit) {
    tree.query(bg::index::intersects(BoxOf(item)),
               boost::make_function_output_iterator([&](const CEntry& entry) { visit(entry.second); }));
}

} // namespace

CRun BoostTree(const CPicture& picture) {
    return [segments = Segments(picture)] {
        const CTree tree = PackedTree(segments);
        CCollector collector;
        for (std::size_t i = 0; i < segments.size(); ++i) {
            Query(tree, segments[i], [&](std::size_t j) {
                if (j > i) {
                    collector.TestSelf(segments[i].segment, segments[i].nRow, segments[j].segment,
                                       segments[j].nRow);
                }
            });
        }
        return collector.Count();
    };
}

CRun BoostTree(const CPicture& a, const CPicture& b) {
    return [segmentsA = Segments(a), segmentsB = Segments(b)] {
        const CTree tree = PackedTree(segmentsB);
        CCollector collector;
        for (const CRowSegment& item : segmentsA) {
            Query(tree, item, [&](std::size_t j) {
                collector.Test(item.segment, item.nRow, segmentsB[j].segment, segmentsB[j].nRow);
            });
        }
        return collector.Count();
    };
}

} // namespace bench
