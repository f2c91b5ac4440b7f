#pragma once

#include <cstddef>
#include <limits>
#include <vector>

#include "tessara/numeric/Polylines.h"

namespace tessara {

/// The most crossings that a table of two rows for each can hold.
constexpr std::size_t MAX_CROSSINGS = std::numeric_limits<int>::max() / 2;

/// Where segment nA of one polyline crosses segment nB of another.
struct CCrossing {
    int nA;
    int nB;
    double x, y;
};

/// Every crossing between segments of lines, in no order. Segment nA is the one of the smaller row; pairs of
/// one row, and neighbours in one part, are not looked at.
///
/// More than nMax crossings throw CMemoryException.
std::vector<CCrossing> SearchSelfCrossings(const CPolylines& lines, std::size_t nMax = MAX_CROSSINGS);

/// Every crossing of a segment nA of a with a segment nB of b, in no order; errors as above.
std::vector<CCrossing> SearchCrossings(const CPolylines& a, const CPolylines& b,
                                       std::size_t nMax = MAX_CROSSINGS);

/// Brings crossings into the order of nA and, for equal nA, of nB. All nA are less than nCountA.
void SortCrossings(std::vector<CCrossing>& crossings, int nCountA);

} // namespace tessara
