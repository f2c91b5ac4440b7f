#pragma once

#include <cstddef>
#include <functional>
#include <vector>

#include "bench/CrossingSamples.h"
#include "tessara/numeric/SegmentCrossing.h"

// How well-known libraries find crossings. Each function prepares a peer's own input, which is not timed, and
// returns what is: its index, its candidate pairs and, where the peer gives pairs, the library's crossing
// test on each and a list of the crossings, unordered. The number of crossings is the result.

namespace bench {

using CRun = std::function<std::size_t()>;

CRun GeosIsSimple(const CPicture& picture); ///< counts points, not pairs
CRun GeosNoder(const CPicture& picture);
CRun CgalBoxes(const CPicture& picture);
CRun BoostTree(const CPicture& picture);

CRun GeosMutualIntersector(const CPicture& a, const CPicture& b);
CRun GeosTree(const CPicture& a, const CPicture& b);
CRun GeosIntersection(const CPicture& a, const CPicture& b); ///< counts points, not pairs
CRun CgalBoxes(const CPicture& a, const CPicture& b);
CRun BoostTree(const CPicture& a, const CPicture& b);

/// The segments of a picture with their row numbers, as the library numbers them: rows of two parts are never
/// neighbours.
struct CRowSegment {
    tessara::CSegment segment;
    int nRow;
};

inline std::vector<CRowSegment> Segments(const CPicture& picture) {
    std::vector<CRowSegment> segments;
    int nRow = 0;
    for (const CPolyline& line : picture) {
        for (std::size_t i = 0; i + 1 < line.size(); ++i, ++nRow) {
            segments.push_back({{line[i][0], line[i][1], line[i + 1][0], line[i + 1][1]}, nRow});
        }
        ++nRow;
    }
    return segments;
}

/// Tests candidate pairs and keeps the crossings.
class CCollector {
public:
    void TestSelf(const tessara::CSegment& s1, int nRow1, const tessara::CSegment& s2, int nRow2) {
        if (nRow2 > nRow1 + 1) {
            Test(s1, nRow1, s2, nRow2);
        } else if (nRow1 > nRow2 + 1) {
            Test(s2, nRow2, s1, nRow1);
        }
    }
    void Test(const tessara::CSegment& a, int nRowA, const tessara::CSegment& b, int nRowB) {
        double x, y;
        if (tessara::Cross(a, b, x, y)) {
            m_crossings.push_back({nRowA, nRowB, x, y});
        }
    }
    std::size_t Count() const { return m_crossings.size(); }

private:
    struct CCrossing {
        int nA, nB;
        double x, y;
    };
    std::vector<CCrossing> m_crossings;
};

} // namespace bench
