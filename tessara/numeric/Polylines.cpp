#include "tessara/numeric/Polylines.h"

#include <limits>
#include <numeric>

#include "tessara/numeric/MultipartTable.h"
#include "tessara/numeric/PartRecords.h"
#include "tessara/platform/base/Exception.h"

namespace tessara {

CPolylines::CPolylines(const CMultipartTable& table, int nX, int nY)
    : m_pX(table.m_ppData[nX]), m_pY(table.m_ppData[nY]), m_nCount(table.m_nPoints) {
    if (!TakeRuns(table)) {
        CopyPoints();
    }
}

/// Notes the rows of every part that has a segment; true when they ascend without a row in common.
bool CPolylines::TakeRuns(const CMultipartTable& table) {
    bool bAscend = true;
    for (int i = 0; i < table.m_nParts; ++i) {
        const CCurvePartInfo part = ClipPart(table.m_pParts[i], table.m_nPoints);
        if (part.nPoints < 2) {
            continue;
        }
        bAscend = bAscend && (m_runs.empty() || part.nFirst > m_runs.back().nLast);
        m_runs.push_back({part.nFirst, part.nFirst + part.nPoints - 1});
    }
    return bAscend;
}

/// Copies the points of every run, one run after another, and renumbers the runs.
void CPolylines::CopyPoints() {
    const auto nPoints =
        std::accumulate(m_runs.begin(), m_runs.end(), std::size_t{0}, [](std::size_t nSum, const CRun& run) {
            return nSum + static_cast<std::size_t>(run.nLast - run.nFirst) + 1;
        });
    if (nPoints > static_cast<std::size_t>(std::numeric_limits<int>::max())) {
        AfxThrowMemoryException();
    }
    m_x.reserve(nPoints);
    m_y.reserve(nPoints);
    m_rows.resize(nPoints);
    for (CRun& run : m_runs) {
        const int nFirst = static_cast<int>(m_x.size());
        m_x.insert(m_x.end(), m_pX + run.nFirst, m_pX + run.nLast + 1);
        m_y.insert(m_y.end(), m_pY + run.nFirst, m_pY + run.nLast + 1);
        std::iota(m_rows.begin() + nFirst, m_rows.begin() + static_cast<std::ptrdiff_t>(m_x.size()),
                  run.nFirst);
        run = {nFirst, static_cast<int>(m_x.size()) - 1};
    }
    m_pX = m_x.data();
    m_pY = m_y.data();
    m_nCount = static_cast<int>(nPoints);
}

} // namespace tessara
