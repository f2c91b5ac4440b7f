#include "tessara/numeric/LevelSection.h"

#include <cmath>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/numeric/Storage.h"

namespace {

bool Crosses(double dFrom, double dTo, double dValue) {
    // Without short circuits: which comparison fails is as good as random along a curve. By function: gaps in
    // a curve are not to trap.
    return (std::islessequal(dFrom, dValue) & std::isless(dValue, dTo)) |
           (std::isgreaterequal(dFrom, dValue) & std::isgreater(dValue, dTo));
}

/// Calls action(i) for every segment (i, i + 1) that crosses the level.
template <class ACTION>
void ForEachCrossing(const tessara::CSectionSource& source, const double* pLevel, double dValue,
                     ACTION action) {
    for (const CCurvePartInfo& record : source.parts) {
        const CCurvePartInfo part = tessara::ClipPart(record, source.nPoints);
        for (int i = part.nFirst; i < part.nFirst + part.nPoints - 1; ++i) {
            if (Crosses(pLevel[i], pLevel[i + 1], dValue)) {
                action(i);
            }
        }
    }
}

} // namespace

namespace tessara {

std::unique_ptr<CTable> LevelSection(const CSectionSource& source, const double* pLevel, double dValue) {
    const int nLast = source.nPoints - 1;
    const bool bLastOnLevel = nLast >= 0 && pLevel[nLast] == dValue;
    int nRows = bLastOnLevel;
    ForEachCrossing(source, pLevel, dValue, [&](int) { ++nRows; });
    if (nRows == 0) {
        return nullptr;
    }

    const int nColumns = static_cast<int>(source.columns.size());
    auto pSection = NewObject<CTable>(nColumns);
    pSection->Allocate(nRows);
    int nRow = 0;
    ForEachCrossing(source, pLevel, dValue, [&](int i) {
        for (int k = 0; k < nColumns; ++k) {
            const double* pColumn = source.columns[k];
            pSection->m_ppData[k][nRow] =
                LinearInterpolation(dValue, pColumn[i + 1], pColumn[i], pLevel[i + 1], pLevel[i]);
        }
        ++nRow;
    });
    for (int k = 0; bLastOnLevel && k < nColumns; ++k) {
        pSection->m_ppData[k][nRow] = source.columns[k][nLast];
    }
    return pSection;
}

} // namespace tessara
