#pragma once

#include <functional>
#include <vector>

namespace flory {

/// Where a function of a grid's coordinates is zero: open or closed polylines, with a vertex on every edge of
/// the grid on whose ends the signs differ.
///
/// Vertices are exact, the zero of the function along the edge; only the way between them is straight. Found
/// are all lines that do not pass through an edge twice. The function is asked about every grid point once,
/// column by column, and some ten times for a vertex.
class CLevelContour {
public:
    struct CPoint {
        double x; ///< in [0, columns - 1]
        double y; ///< in [0, rows - 1]
    };
    using CFunction = std::function<double(double x, double y)>;

    /// REQUIRES: at least 2 columns and 2 rows. A value that is not a number counts as negative.
    CLevelContour(int nColumns, int nRows, CFunction function);

    const std::vector<std::vector<CPoint>>& Lines() const { return m_lines; }

private:
    /// An edge starts in a grid point and goes along x (even) or y (odd).
    int Edge(int nColumn, int nRow, bool bAlongY) const {
        return 2 * (nRow * m_nColumns + nColumn) + bAlongY;
    }
    bool Positive(int nColumn, int nRow) const;
    void LinkCell(int i, int j);
    void Link(int nEdge, int nOther);
    void Walk(int nEdge);
    CPoint Vertex(int nEdge) const;

    int m_nColumns;
    int m_nRows;
    CFunction m_function;
    std::vector<char> m_positive;
    std::vector<int> m_links; ///< two neighbours of each edge, -1 for none
    std::vector<std::vector<CPoint>> m_lines;
};

} // namespace flory
