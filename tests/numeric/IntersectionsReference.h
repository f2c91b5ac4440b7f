#pragma once

#include <algorithm>
#include <memory>

#include "tessara/numeric/Curve.h"
#include "tessara/numeric/MultipartTable.h"

/// The crossings of multipart tables by a plain loop over all pairs of segments: what the library's results
/// are compared with. It shares no code with the library but the containers and LinearInterpolation.
namespace reference {

struct CPlane {
    const CMultipartTable& table;
    int nX;
    int nY;

    double X(int i) const { return table.m_ppData[nX][i]; }
    double Y(int i) const { return table.m_ppData[nY][i]; }
    double MinX(int i) const { return std::min(X(i), X(i + 1)); }
    double MaxX(int i) const { return std::max(X(i), X(i + 1)); }
    double MinY(int i) const { return std::min(Y(i), Y(i + 1)); }
    double MaxY(int i) const { return std::max(Y(i), Y(i + 1)); }
    bool BoxHas(int i, double x, double y) const {
        return MinX(i) <= x && x <= MaxX(i) && MinY(i) <= y && y <= MaxY(i);
    }

    void Line(int i, double* pLine) const {
        const double x1 = X(i), y1 = Y(i), x2 = X(i + 1), y2 = Y(i + 1);
        if (x1 == x2) {
            pLine[0] = 1, pLine[1] = 0, pLine[2] = -x1;
        } else if (y1 == y2) {
            pLine[0] = 0, pLine[1] = 1, pLine[2] = -y1;
        } else {
            pLine[0] = 1 / (x2 - x1);
            pLine[1] = -1 / (y2 - y1);
            pLine[2] = -x1 * pLine[0] + y1 / (y2 - y1);
        }
    }
};

inline bool Cross(const CPlane& a, int i, const CPlane& b, int j, double& x, double& y) {
    if (a.MinX(i) > b.MaxX(j) || b.MaxY(j) < a.MinY(i) || a.MaxX(i) < b.MinX(j) || a.MaxY(i) < b.MinY(j)) {
        return false;
    }
    double lineA[3], lineB[3];
    a.Line(i, lineA);
    b.Line(j, lineB);
    const double dDeterminant = lineA[0] * lineB[1] - lineA[1] * lineB[0];
    if (dDeterminant == 0) {
        return false;
    }
    const double dInverse = 1 / dDeterminant;
    x = (lineA[1] * lineB[2] - lineA[2] * lineB[1]) * dInverse;
    y = (lineA[2] * lineB[0] - lineA[0] * lineB[2]) * dInverse;
    return a.BoxHas(i, x, y) && b.BoxHas(j, x, y);
}

/// Calls action(part, i) for every segment (i, i + 1) of rows that exist.
template <class ACTION>
void ForEachSegment(const CMultipartTable& table, ACTION action) {
    for (int nPart = 0; nPart < table.m_nParts; ++nPart) {
        const CCurvePartInfo& part = table.m_pParts[nPart];
        for (int i = part.nFirst; i < part.nFirst + part.nPoints - 1; ++i) {
            if (i >= 0 && i + 1 < table.m_nPoints) {
                action(nPart, i);
            }
        }
    }
}

/// The rows found, as the library stores them while it has them: 1024 at first, then 512 more at a time.
class CResult {
public:
    explicit CResult(int nColumns) : m_pTable(std::make_unique<CMultipartTable>(nColumns)) {
        m_pTable->Allocate(1024);
    }

    void Add(const CPlane& b, int j, const CPlane& a, int i, double x, double y) {
        m_pTable->BeginPart(m_nRows, 0);
        AddRow(b, j, x, y);
        AddRow(a, i, x, y);
        m_pTable->EndPart(m_nRows - 1);
    }

    std::unique_ptr<CMultipartTable> Take() {
        if (m_nRows == 0) {
            return nullptr;
        }
        m_pTable->ReAllocate(m_nRows);
        return std::move(m_pTable);
    }

private:
    void AddRow(const CPlane& seen, int i, double x, double y) {
        for (int k = 0; k < m_pTable->m_nDimensions; ++k) {
            double& dValue = m_pTable->m_ppData[k][m_nRows];
            if (k >= seen.table.m_nDimensions) {
                dValue = 0;
            } else if (k == seen.nX || k == seen.nY) {
                dValue = k == seen.nY ? y : x;
            } else {
                const double* pColumn = seen.table.m_ppData[k];
                dValue = LinearInterpolation(y, pColumn[i + 1], pColumn[i], seen.Y(i + 1), seen.Y(i));
            }
        }
        if (++m_nRows == m_pTable->m_nPoints) {
            m_pTable->ReAllocate(m_nRows + 512);
        }
    }

    std::unique_ptr<CMultipartTable> m_pTable;
    int m_nRows = 0;
};

inline std::unique_ptr<CMultipartTable> SelfIntersections(const CMultipartTable& table, int nX, int nY) {
    const CPlane plane{table, nX, nY};
    CResult result(table.m_nDimensions);
    ForEachSegment(table, [&](int nPartA, int i) {
        ForEachSegment(table, [&](int nPartB, int j) {
            double x, y;
            if (j > i && !(j == i + 1 && nPartA == nPartB) && Cross(plane, i, plane, j, x, y)) {
                result.Add(plane, j, plane, i, x, y);
            }
        });
    });
    return result.Take();
}

inline std::unique_ptr<CMultipartTable> Intersections(const CPlane& a, const CPlane& b) {
    CResult result(std::max(a.table.m_nDimensions, b.table.m_nDimensions));
    ForEachSegment(a.table, [&](int, int i) {
        ForEachSegment(b.table, [&](int, int j) {
            double x, y;
            if (Cross(a, i, b, j, x, y)) {
                result.Add(b, j, a, i, x, y);
            }
        });
    });
    return result.Take();
}

} // namespace reference
