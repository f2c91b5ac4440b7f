#include "tessara/numeric/Intersections.h"

#include <algorithm>
#include <memory>

#include "tessara/numeric/CrossingSearch.h"
#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"
#include "tessara/platform/base/NoTraps.h"

namespace {

using tessara::CCrossing;
using tessara::CCrossingList;

/// One of the two tables that cross, and the plane in it.
struct CSide {
    const CMultipartTable& table;
    const tessara::CPolylines& lines;
    int nX;
    int nY;

    /// Column k of the row seen from the segment after row i.
    double Value(int k, int i, const CCrossing& crossing) const {
        if (k >= table.m_nDimensions) {
            return 0;
        }
        if (k == nY) {
            return crossing.y;
        }
        if (k == nX) {
            return crossing.x;
        }
        const double* pColumn = table.m_ppData[k];
        const double* pY = table.m_ppData[nY];
        return LinearInterpolation(crossing.y, pColumn[i + 1], pColumn[i], pY[i + 1], pY[i]);
    }
};

/// Records of two rows each, with as much room as adding them one by one would have made.
void SetParts(CMultipartTable& table, int nParts) {
    const int nBeyond = nParts - tessara::INITIAL_PARTS;
    if (nBeyond >= 0) {
        const int nMore = nBeyond / tessara::PARTS_GROWTH * tessara::PARTS_GROWTH + tessara::PARTS_GROWTH;
        const int nMaxParts = tessara::AddCounts(tessara::INITIAL_PARTS, nMore);
        tessara::ResizeArray(table.m_pParts, nMaxParts);
        tessara::PreferLargePages(table.m_pParts,
                                  static_cast<std::size_t>(nMaxParts) * sizeof *table.m_pParts);
        table.m_nMaxParts = nMaxParts;
    }
    for (int i = 0; i < nParts; ++i) {
        table.m_pParts[i] = {2 * i, 2, 0};
    }
    table.m_nParts = nParts;
}

/// The table of the crossings: for each the row seen from the second side, then the one from the first.
CMultipartTable* MakeTable(const CCrossingList& crossings, const CSide& a, const CSide& b) {
    if (crossings.Size() == 0) {
        return nullptr;
    }
    const int nColumns = std::max(a.table.m_nDimensions, b.table.m_nDimensions);
    auto pResult = tessara::NewObject<CMultipartTable>(nColumns);
    pResult->Allocate(static_cast<int>(2 * crossings.Size()));
    for (int k = 0; k < nColumns; ++k) {
        double* pValue = pResult->m_ppData[k];
        tessara::PreferLargePages(pValue, 2 * crossings.Size() * sizeof *pValue);
        for (const CCrossing& crossing : crossings.All()) {
            *pValue++ = b.Value(k, b.lines.Row(crossing.nB), crossing);
            *pValue++ = a.Value(k, a.lines.Row(crossing.nA), crossing);
        }
    }
    SetParts(*pResult, static_cast<int>(crossings.Size()));
    return pResult.release();
}

/// Runs a search. Lack of memory in it is the library's own exception too. It compares boxes in machine
/// vectors, which raise an exception for what is not a number, and crosses segments without asking first
/// whether their boxes have numbers at all.
template <class FUNCTION>
CMultipartTable* Search(FUNCTION function) {
    const tessara::CNoTraps noTraps;
    return tessara::WithMemoryException(function);
}

} // namespace

CMultipartTable* Find2DSelfIntersections(CMultipartTable* pTable, int nX, int nY) {
    return Search([&] {
        const tessara::CPolylines lines(*pTable, nX, nY);
        const CCrossingList crossings =
            tessara::SortedCrossings(tessara::SearchSelfCrossings(lines), lines.Count());
        const CSide side{*pTable, lines, nX, nY};
        return MakeTable(crossings, side, side);
    });
}

CMultipartTable* FindIntersections(CMultipartTable* pA, CMultipartTable* pB, int nXA, int nYA, int nXB,
                                   int nYB) {
    return Search([&] {
        const tessara::CPolylines a(*pA, nXA, nYA);
        const tessara::CPolylines b(*pB, nXB, nYB);
        const CCrossingList crossings = tessara::SortedCrossings(tessara::SearchCrossings(a, b), a.Count());
        return MakeTable(crossings, {*pA, a, nXA, nYA}, {*pB, b, nXB, nYB});
    });
}
