// Acknowledges that the C++ interface may change between versions.
#define USE_UNSTABLE_GEOS_CPP_API
#include <geos/geom/CoordinateArraySequence.h>
#include <geos/geom/Geometry.h>
#include <geos/geom/GeometryFactory.h>
#include <geos/geom/LineString.h>
#include <geos/geom/MultiLineString.h>
#include <geos/index/strtree/TemplateSTRtree.h>
#include <geos/noding/BasicSegmentString.h>
#include <geos/noding/MCIndexNoder.h>
#include <geos/noding/MCIndexSegmentSetMutualIntersector.h>
#include <geos/noding/NodedSegmentString.h>
#include <geos/noding/SegmentIntersector.h>
#include <geos/operation/valid/IsSimpleOp.h>

#include "bench/CrossingPeers.h"

namespace bench {
namespace {

namespace gg = geos::geom;
namespace gn = geos::noding;

std::unique_ptr<gg::CoordinateArraySequence> Sequence(const CPolyline& line) {
    auto pSequence = std::make_unique<gg::CoordinateArraySequence>(line.size(), std::size_t{2});
    for (std::size_t i = 0; i < line.size(); ++i) {
        pSequence->setAt(gg::Coordinate(line[i][0], line[i][1]), i);
    }
    return pSequence;
}

std::shared_ptr<gg::Geometry> Lines(const CPicture& picture) {
    const gg::GeometryFactory& factory = *gg::GeometryFactory::getDefaultInstance();
    std::vector<std::unique_ptr<gg::LineString>> lines;
    for (const CPolyline& line : picture) {
        lines.push_back(factory.createLineString(Sequence(line)));
    }
    return factory.createMultiLineString(std::move(lines));
}

/// Segment strings that know the row of their first segment.
template <class STRING>
class CStrings {
public:
    explicit CStrings(const CPicture& picture) : m_rows(picture.size()) {
        int nRow = 0;
        for (std::size_t i = 0; i < picture.size(); ++i) {
            m_rows[i] = nRow;
            nRow += static_cast<int>(picture[i].size());
            m_sequences.push_back(Sequence(picture[i]));
            m_strings.push_back(Make(i));
            m_pointers.push_back(m_strings.back().get());
        }
    }
    std::vector<gn::SegmentString*> Pointers() const { return m_pointers; }
    std::vector<const gn::SegmentString*> ConstPointers() const {
        return {m_pointers.begin(), m_pointers.end()};
    }

private:
    std::unique_ptr<STRING> Make(std::size_t i) {
        if constexpr (std::is_same_v<STRING, gn::NodedSegmentString>) {
            return std::make_unique<STRING>(m_sequences[i].release(), &m_rows[i]);
        } else {
            return std::make_unique<STRING>(m_sequences[i].get(), &m_rows[i]);
        }
    }

    std::vector<int> m_rows;
    std::vector<std::unique_ptr<gg::CoordinateArraySequence>> m_sequences;
    std::vector<std::unique_ptr<STRING>> m_strings;
    std::vector<gn::SegmentString*> m_pointers;
};

tessara::CSegment SegmentOf(const gn::SegmentString& string, std::size_t i) {
    const gg::Coordinate& first = string.getCoordinate(i);
    const gg::Coordinate& second = string.getCoordinate(i + 1);
    return {first.x, first.y, second.x, second.y};
}

/// Receives the pairs of segments whose boxes meet.
template <bool SELF>
class CIntersector final : public gn::SegmentIntersector {
public:
    void processIntersections(gn::SegmentString* p0, std::size_t i0, gn::SegmentString* p1,
                              std::size_t i1) override {
        const tessara::CSegment s0 = SegmentOf(*p0, i0), s1 = SegmentOf(*p1, i1);
        if (tessara::Apart(tessara::CBounds(s0), tessara::CBounds(s1))) {
            return;
        }
        const int nRow0 = *static_cast<const int*>(p0->getData()) + static_cast<int>(i0);
        const int nRow1 = *static_cast<const int*>(p1->getData()) + static_cast<int>(i1);
        if constexpr (SELF) {
            m_collector.TestSelf(s0, nRow0, s1, nRow1);
        } else {
            m_collector.Test(s1, nRow1, s0, nRow0);
        }
    }
    CCollector m_collector;
};

gg::Envelope EnvelopeOf(const CRowSegment& item) {
    return {item.segment.x1, item.segment.x2, item.segment.y1, item.segment.y2};
}

} // namespace

CRun GeosIsSimple(const CPicture& picture) {
    return [pLines = Lines(picture)] {
        geos::operation::valid::IsSimpleOp op(*pLines);
        op.setFindAllLocations(true);
        return op.getNonSimpleLocations().size();
    };
}

CRun GeosNoder(const CPicture& picture) {
    return [pStrings = std::make_shared<CStrings<gn::NodedSegmentString>>(picture)] {
        CIntersector<true> intersector;
        gn::MCIndexNoder noder(&intersector);
        std::vector<gn::SegmentString*> strings = pStrings->Pointers();
        noder.computeNodes(&strings);
        return intersector.m_collector.Count();
    };
}

CRun GeosMutualIntersector(const CPicture& a, const CPicture& b) {
    return [pA = std::make_shared<CStrings<gn::BasicSegmentString>>(a),
            pB = std::make_shared<CStrings<gn::BasicSegmentString>>(b)] {
        CIntersector<false> intersector;
        gn::MCIndexSegmentSetMutualIntersector mutual;
        std::vector<const gn::SegmentString*> stringsA = pA->ConstPointers();
        std::vector<const gn::SegmentString*> stringsB = pB->ConstPointers();
        mutual.setBaseSegments(&stringsB);
        mutual.setSegmentIntersector(&intersector);
        mutual.process(&stringsA);
        return intersector.m_collector.Count();
    };
}

CRun GeosTree(const CPicture& a, const CPicture& b) {
    return [segmentsA = Segments(a), segmentsB = Segments(b)] {
        geos::index::strtree::TemplateSTRtree<const CRowSegment*> tree(10, segmentsB.size());
        for (const CRowSegment& item : segmentsB) {
            tree.insert(EnvelopeOf(item), &item);
        }
        CCollector collector;
        for (const CRowSegment& item : segmentsA) {
            tree.query(EnvelopeOf(item), [&](const CRowSegment* pOther) {
                collector.Test(item.segment, item.nRow, pOther->segment, pOther->nRow);
            });
        }
        return collector.Count();
    };
}

CRun GeosIntersection(const CPicture& a, const CPicture& b) {
    return [pA = Lines(a), pB = Lines(b)] { return pA->intersection(pB.get())->getNumPoints(); };
}

} // namespace bench
