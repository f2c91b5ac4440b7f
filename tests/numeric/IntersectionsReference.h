#pragma once

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

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

    std::array<double, 3> Line(int i) const {
        const double x1 = X(i), y1 = Y(i), x2 = X(i + 1), y2 = Y(i + 1);
        if (x1 == x2) {
            return {1, 0, -x1};
        }
        if (y1 == y2) {
            return {0, 1, -y1};
        }
        return {1 / (x2 - x1), -1 / (y2 - y1), -x1 * (1 / (x2 - x1)) + y1 / (y2 - y1)};
    }
};

inline bool Cross(const CPlane& a, int i, const CPlane& b, int j, double& x, double& y) {
    if (a.MinX(i) > b.MaxX(j) || b.MaxY(j) < a.MinY(i) || a.MaxX(i) < b.MinX(j) || a.MaxY(i) < b.MinY(j)) {
        return false;
    }
    const auto lineA = a.Line(i), lineB = b.Line(j);
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

/// The rows found: two for each crossing, a part of their own.
class CResult {
public:
    explicit CResult(int nColumns) : m_nColumns(nColumns) {}

    void Add(const CPlane& b, int j, const CPlane& a, int i, double x, double y) {
        AddRow(b, j, x, y);
        AddRow(a, i, x, y);
    }

    std::unique_ptr<CMultipartTable> Take() const {
        auto pTable = std::make_unique<CMultipartTable>(m_nColumns);
        const int nRows = static_cast<int>(m_Rows.size());
        pTable->Allocate(nRows);
        for (int i = 0; i < nRows; ++i) {
            for (int k = 0; k < m_nColumns; ++k) {
                pTable->m_ppData[k][i] = m_Rows[static_cast<std::size_t>(i)][static_cast<std::size_t>(k)];
            }
            i % 2 ? pTable->EndPart(i) : pTable->BeginPart(i, 0);
        }
        return nRows > 0 ? std::move(pTable) : nullptr;
    }

private:
    void AddRow(const CPlane& seen, int i, double x, double y) {
        auto& row = m_Rows.emplace_back();
        for (int k = 0; k < m_nColumns; ++k) {
            const double* pColumn = k < seen.table.m_nDimensions ? seen.table.m_ppData[k] : nullptr;
            row.push_back(k == seen.nY   ? y
                          : k == seen.nX ? x
                          : pColumn
                              ? LinearInterpolation(y, pColumn[i + 1], pColumn[i], seen.Y(i + 1), seen.Y(i))
                              : 0);
        }
    }

    int m_nColumns;
    std::vector<std::vector<double>> m_Rows;
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
