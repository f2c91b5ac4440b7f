#pragma once

#include <cstddef>
#include <vector>

#include "tessara/numeric/SegmentCrossing.h"

class CMultipartTable;

namespace tessara {

/// The parts of a multipart table in a plane of two of its columns, as points numbered so that segment n lies
/// between points n and n + 1 of one part, and higher numbers come later in the order of parts and rows.
///
/// Where the parts lie in the order of their rows and share none, the numbers are the row numbers and the
/// points are the table's, which must not change meanwhile; otherwise the points are copied part by part.
/// Rows of a part that the table does not have are left out.
///
/// More points than an int counts throw CMemoryException.
class CPolylines {
public:
    /// The points nFirst to nLast of one part that has a segment.
    struct CRun {
        int nFirst;
        int nLast;
    };

    CPolylines(const CMultipartTable& table, int nX, int nY);
    CPolylines(const CPolylines&) = delete;
    CPolylines& operator=(const CPolylines&) = delete;

    const double* X() const { return m_pX; }
    const double* Y() const { return m_pY; }
    const std::vector<CRun>& Runs() const { return m_runs; }
    /// One more than the largest number of a point.
    int Count() const { return m_nCount; }
    /// The row of the table that a point comes from.
    int Row(int nPoint) const { return m_rows.empty() ? nPoint : m_rows[static_cast<std::size_t>(nPoint)]; }
    /// Whether the numbers are rows.
    bool IsInRowOrder() const { return m_rows.empty(); }

    CSegment Segment(int nSegment) const {
        return {m_pX[nSegment], m_pY[nSegment], m_pX[nSegment + 1], m_pY[nSegment + 1]};
    }

private:
    bool TakeRuns(const CMultipartTable& table);
    void CopyPoints();

    const double* m_pX;
    const double* m_pY;
    int m_nCount;
    std::vector<CRun> m_runs;
    std::vector<double> m_x, m_y; ///< the copy, if there is one
    std::vector<int> m_rows;      ///< the row of every point of the copy
};

} // namespace tessara
