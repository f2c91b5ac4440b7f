#include <CGAL/Box_intersection_d/Box_d.h>
#include <CGAL/box_intersection_d.h>

#include "bench/CrossingPeers.h"

namespace bench {
namespace {

/// A box that knows its segment.
class CSegmentBox : public CGAL::Box_intersection_d::Box_d<double, 2> {
public:
    CSegmentBox(const CRowSegment& item, double* pLow, double* pHigh) : Box_d(pLow, pHigh), m_pItem(&item) {}
    const CRowSegment& Item() const { return *m_pItem; }

private:
    const CRowSegment* m_pItem;
};

std::vector<CSegmentBox> Boxes(const std::vector<CRowSegment>& segments) {
    std::vector<CSegmentBox> boxes;
    boxes.reserve(segments.size());
    for (const CRowSegment& item : segments) {
        const tessara::CBounds bounds(item.segment);
        double low[] = {bounds.dMinX, bounds.dMinY};
        double high[] = {bounds.dMaxX, bounds.dMaxY};
        boxes.emplace_back(item, low, high);
    }
    return boxes;
}

} // namespace

CRun CgalBoxes(const CPicture& picture) {
    return [segments = Segments(picture)] {
        std::vector<CSegmentBox> boxes = Boxes(segments);
        CCollector collector;
        CGAL::box_self_intersection_d(
            boxes.begin(), boxes.end(), [&](const CSegmentBox& a, const CSegmentBox& b) {
                collector.TestSelf(a.Item().segment, a.Item().nRow, b.Item().segment, b.Item().nRow);
            });
        return collector.Count();
    };
}

CRun CgalBoxes(const CPicture& a, const CPicture& b) {
    return [segmentsA = Segments(a), segmentsB = Segments(b)] {
        std::vector<CSegmentBox> boxesA = Boxes(segmentsA);
        std::vector<CSegmentBox> boxesB = Boxes(segmentsB);
        CCollector collector;
        CGAL::box_intersection_d(boxesA.begin(), boxesA.end(), boxesB.begin(), boxesB.end(),
                                 [&](const CSegmentBox& boxA, const CSegmentBox& boxB) {
                                     collector.Test(boxA.Item().segment, boxA.Item().nRow,
                                                    boxB.Item().segment, boxB.Item().nRow);
                                 });
        return collector.Count();
    };
}

} // namespace bench
