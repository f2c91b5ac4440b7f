#include "examples/flory/model/LevelContour.h"

#include <cstddef>
#include <utility>

#include "examples/flory/model/Searches.h"

namespace flory {

CLevelContour::CLevelContour(int nColumns, int nRows, CFunction function)
    : m_nColumns(nColumns), m_nRows(nRows), m_function(std::move(function)),
      m_links(4 * static_cast<std::size_t>(nColumns) * static_cast<std::size_t>(nRows), -1) {
    for (int i = 0; i < nColumns; ++i) {
        for (int j = 0; j < nRows; ++j) {
            m_positive.push_back(m_function(i, j) >= 0);
        }
    }
    for (int i = 0; i + 1 < nColumns; ++i) {
        for (int j = 0; j + 1 < nRows; ++j) {
            LinkCell(i, j);
        }
    }
    // Lines that end on the grid's border first; what is left then is closed.
    for (const bool bOpen : {true, false}) {
        for (int nEdge = 0; nEdge < 2 * nColumns * nRows; ++nEdge) {
            const auto n = 2 * static_cast<std::size_t>(nEdge);
            if (m_links[n] >= 0 && (!bOpen || m_links[n + 1] < 0)) {
                Walk(nEdge);
            }
        }
    }
}

bool CLevelContour::Positive(int nColumn, int nRow) const {
    const auto nRows = m_positive.size() / static_cast<std::size_t>(m_nColumns);
    return m_positive[static_cast<std::size_t>(nColumn) * nRows + static_cast<std::size_t>(nRow)] != 0;
}

void CLevelContour::LinkCell(int i, int j) {
    const bool bLowLeft = Positive(i, j), bLowRight = Positive(i + 1, j);
    const bool bTopLeft = Positive(i, j + 1), bTopRight = Positive(i + 1, j + 1);
    const int nLow = Edge(i, j, false), nTop = Edge(i, j + 1, false);
    const int nLeft = Edge(i, j, true), nRight = Edge(i + 1, j, true);
    if (bLowLeft == bTopRight && bLowRight == bTopLeft && bLowLeft != bLowRight) {
        // A saddle: the middle tells which corners belong together.
        const bool bMiddle = m_function(i + 0.5, j + 0.5) >= 0;
        Link(nLow, bMiddle == bLowLeft ? nRight : nLeft);
        Link(nTop, bMiddle == bLowLeft ? nLeft : nRight);
        return;
    }
    int crossed[4];
    int nCrossed = 0;
    const std::pair<int, bool> edges[] = {{nLow, bLowLeft != bLowRight},
                                          {nTop, bTopLeft != bTopRight},
                                          {nLeft, bLowLeft != bTopLeft},
                                          {nRight, bLowRight != bTopRight}};
    for (const auto& [nEdge, bCrossed] : edges) {
        if (bCrossed) {
            crossed[nCrossed++] = nEdge;
        }
    }
    if (nCrossed == 2) {
        Link(crossed[0], crossed[1]);
    }
}

void CLevelContour::Link(int nEdge, int nOther) {
    for (const auto& [n, nTo] : {std::pair(nEdge, nOther), std::pair(nOther, nEdge)}) {
        const auto nFirst = 2 * static_cast<std::size_t>(n);
        m_links[m_links[nFirst] < 0 ? nFirst : nFirst + 1] = nTo;
    }
}

/// Follows a line from one of its vertices and takes its links away.
void CLevelContour::Walk(int nEdge) {
    std::vector<CPoint> line;
    const int nStart = nEdge;
    int nFrom = -1;
    while (nEdge >= 0) {
        line.push_back(Vertex(nEdge));
        const auto n = 2 * static_cast<std::size_t>(nEdge);
        const int nNext = m_links[n] != nFrom ? m_links[n] : m_links[n + 1];
        m_links[n] = m_links[n + 1] = -1;
        nFrom = nEdge;
        nEdge = nNext;
        if (nEdge == nStart) {
            line.push_back(line.front());
            break;
        }
    }
    m_lines.push_back(std::move(line));
}

CLevelContour::CPoint CLevelContour::Vertex(int nEdge) const {
    const int i = nEdge / 2 % m_nColumns, j = nEdge / 2 / m_nColumns;
    if (nEdge % 2 == 0) {
        return {FindZero([&](double x) { return m_function(x, j); }, i, i + 1), static_cast<double>(j)};
    }
    return {static_cast<double>(i), FindZero([&](double y) { return m_function(i, y); }, j, j + 1)};
}

} // namespace flory
