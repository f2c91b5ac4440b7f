#include "tessara/plot/PlotMap.h"

#include <algorithm>
#include <cmath>

namespace tessara {

bool IsDrawable(double dX, double dY) {
    return std::isfinite(dX) && std::isfinite(dY);
}

namespace {

/// The points of a run in page columns: of those in one column the first, the lowest, the highest and the
/// last.
///
/// Mapping never turns an order round, so the columns' extremes are found among the values, and of a column
/// only the points that are kept are mapped.
class CColumnWalk {
public:
    CColumnWalk(const CPlotMap& map, const double* pX, const double* pY, int nPoints)
        : m_map(map), m_pX(pX), m_pY(pY), m_nPoints(nPoints) {}

    bool IsDrawableAt(int i) const { return IsDrawable(m_pX[i], m_pY[i]); }

    /// Adds the column that starts at a drawable point to the kept points; the index behind it.
    int AddColumn(int nFirst, std::vector<POINT>& kept) const {
        const int nColumn = m_map.MapX(m_pX[nFirst]);
        CPlotMap::CInterval sure{m_pX[nFirst], m_pX[nFirst]};
        CExtreme low{m_pY[nFirst], nFirst};
        CExtreme high = low;
        int nEnd = nFirst + 1;
        for (; nEnd < m_nPoints; ++nEnd) {
            const double dX = m_pX[nEnd];
            const double dY = m_pY[nEnd];
            if (!sure.Contains(dX)) {
                if (!std::isfinite(dX) || m_map.MapX(dX) != nColumn) {
                    break;
                }
                sure = m_map.GetColumn(nColumn, dX);
            }
            if (!std::isfinite(dY)) {
                break;
            }
            if (dY < low.dY) {
                low = {dY, nEnd};
            } else if (dY > high.dY) {
                high = {dY, nEnd};
            }
        }
        for (const int i : {nFirst, std::min(low.nAt, high.nAt), std::max(low.nAt, high.nAt), nEnd - 1}) {
            const POINT point{nColumn, m_map.MapY(m_pY[i])};
            if (kept.empty() || kept.back() != point) {
                kept.push_back(point);
            }
        }
        return nEnd;
    }

private:
    /// An ordinate and its index.
    struct CExtreme {
        double dY;
        int nAt;
    };

    const CPlotMap& m_map;
    const double* m_pX;
    const double* m_pY;
    int m_nPoints;
};

} // namespace

CPlotMap::CInterval CPlotMap::GetColumn(int nColumn, double dX) const {
    // Somewhat less than the column, and only what maps there for certain.
    constexpr double INSIDE = 1e-6;
    const auto fnEnd = [&](double dAt) {
        const double dEnd = m_x.dLower + (dAt - m_frame.left) / m_frame.Width() * m_x.dSpan;
        return std::isfinite(dEnd) && MapX(dEnd) == nColumn ? dEnd : dX;
    };
    const auto [dFirst, dLast] = std::minmax({fnEnd(nColumn + INSIDE), dX, fnEnd(nColumn + 1 - INSIDE)});
    return {dFirst, dLast};
}

void MapPolyline(const CPlotMap& map, const double* pX, const double* pY, int nPoints,
                 std::vector<POINT>& buffer, const std::function<void(std::span<POINT>)>& emit) {
    const CColumnWalk walk(map, pX, pY, nPoints);
    for (int i = 0; i < nPoints;) {
        buffer.clear();
        while (i < nPoints && walk.IsDrawableAt(i)) {
            i = walk.AddColumn(i, buffer);
        }
        if (!buffer.empty()) {
            emit(buffer);
        } else {
            ++i; // a gap
        }
    }
}

} // namespace tessara
