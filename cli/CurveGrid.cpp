#include "cli/CurveGrid.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>

namespace tessara {

namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

struct GRIDROW {
    double dX;
    std::vector<double> values;
};

bool HasValues(const GRIDROW& row) {
    return std::any_of(row.values.begin(), row.values.end(), [](double d) { return !std::isnan(d); });
}

bool HaveSameGaps(const GRIDROW& a, const GRIDROW& b) {
    return std::equal(a.values.begin(), a.values.end(), b.values.begin(),
                      [](double dA, double dB) { return std::isnan(dA) == std::isnan(dB); });
}

/// Collects the rows that have values.
class CGridRows {
public:
    explicit CGridRows(std::size_t nCurves) : m_Columns(nCurves) {}

    void Add(const GRIDROW& row) {
        if (!HasValues(row)) {
            m_bGap = true;
            return;
        }
        if (!m_X.empty() && (m_bGap || !HaveSameGaps(m_Last, row))) {
            Repeat(m_Last, std::nextafter(m_Last.dX, row.dX));
            if (m_bGap) {
                Append({std::midpoint(m_Last.dX, row.dX), Nothing()});
            }
            Repeat(row, std::nextafter(row.dX, m_X.back()));
        }
        m_bGap = false;
        Append(row);
    }

    std::unique_ptr<CMultiCurve> Make() const {
        auto pCurve = std::make_unique<CMultiCurve>(static_cast<int>(m_Columns.size()));
        pCurve->Allocate(static_cast<int>(m_X.size()));
        std::copy(m_X.begin(), m_X.end(), pCurve->m_pX);
        for (std::size_t i = 0; i < m_Columns.size(); i++) {
            std::copy(m_Columns[i].begin(), m_Columns[i].end(), pCurve->m_ppY[i]);
        }
        return m_X.empty() ? nullptr : std::move(pCurve);
    }

private:
    void Append(const GRIDROW& row) {
        m_X.push_back(row.dX);
        for (std::size_t i = 0; i < m_Columns.size(); i++) {
            m_Columns[i].push_back(row.values[i]);
        }
        m_Last = row;
    }

    /// The row once more a hair aside, where there is room between the last one and the next.
    void Repeat(GRIDROW row, double dX) {
        if (dX > m_X.back()) {
            row.dX = dX;
            Append(row);
        }
    }

    std::vector<double> Nothing() const { return std::vector<double>(m_Columns.size(), NOT_A_NUMBER); }

    std::vector<double> m_X;
    std::vector<std::vector<double>> m_Columns;
    GRIDROW m_Last;
    bool m_bGap = false; ///< rows without values came after the last
};

/// A place between two rows at which a curve, or the abscissa, is on an edge of the window.
struct CUT {
    double dWay; ///< from the earlier row (0) to the later one (1)
    std::size_t nCurve;
    double dEdge;
};

constexpr std::size_t ABSCISSA = std::numeric_limits<std::size_t>::max();

class CGridMaker {
public:
    CGridMaker(const std::vector<double>& x, const std::vector<const std::vector<double>*>& curves,
               const PLOTWINDOW& window)
        : m_X(x), m_Curves(curves), m_Window(window), m_Rows(curves.size()) {}

    std::unique_ptr<CMultiCurve> Make() {
        for (std::size_t i = 0; i < m_X.size(); i++) {
            for (const CUT& cut : CutsBefore(i)) {
                AddCut(cut, i);
            }
            GRIDROW row{m_X[i], {}};
            for (const auto* pCurve : m_Curves) {
                row.values.push_back((*pCurve)[i]);
            }
            AddShown(std::move(row));
        }
        return m_Rows.Make();
    }

private:
    static void AddCrossing(std::vector<CUT>& cuts, std::size_t nCurve, double dFrom, double dTo,
                            double dEdge) {
        if ((dFrom < dEdge && dEdge < dTo) || (dTo < dEdge && dEdge < dFrom)) {
            // Halves, since a difference may overflow.
            cuts.push_back({(dEdge / 2 - dFrom / 2) / (dTo / 2 - dFrom / 2), nCurve, dEdge});
        }
    }

    std::vector<CUT> CutsBefore(std::size_t nRow) const {
        std::vector<CUT> cuts;
        if (nRow == 0) {
            return cuts;
        }
        for (const double dEdge : {m_Window.dXMin, m_Window.dXMax}) {
            AddCrossing(cuts, ABSCISSA, m_X[nRow - 1], m_X[nRow], dEdge);
        }
        for (std::size_t i = 0; i < m_Curves.size(); i++) {
            for (const double dEdge : {m_Window.dYMin, m_Window.dYMax}) {
                AddCrossing(cuts, i, (*m_Curves[i])[nRow - 1], (*m_Curves[i])[nRow], dEdge);
            }
        }
        std::stable_sort(cuts.begin(), cuts.end(),
                         [](const CUT& a, const CUT& b) { return a.dWay < b.dWay; });
        return cuts;
    }

    void AddCut(const CUT& cut, std::size_t nRow) {
        const auto between = [&](std::size_t nCurve, const std::vector<double>& values) {
            return nCurve == cut.nCurve ? cut.dEdge : LerpOverGaps(values[nRow - 1], values[nRow], cut.dWay);
        };
        GRIDROW row{between(ABSCISSA, m_X), {}};
        for (std::size_t i = 0; i < m_Curves.size(); i++) {
            row.values.push_back(between(i, *m_Curves[i]));
        }
        AddShown(std::move(row));
    }

    void AddShown(GRIDROW row) {
        for (double& dValue : row.values) {
            if (!m_Window.Contains(row.dX, dValue)) {
                dValue = NOT_A_NUMBER;
            }
        }
        m_Rows.Add(row);
    }

    const std::vector<double>& m_X;
    const std::vector<const std::vector<double>*>& m_Curves;
    const PLOTWINDOW& m_Window;
    CGridRows m_Rows;
};

} // namespace

std::unique_ptr<CMultiCurve> MakeCurveGrid(const std::vector<double>& x,
                                           const std::vector<const std::vector<double>*>& curves,
                                           const PLOTWINDOW& window) {
    return CGridMaker(x, curves, window).Make();
}

} // namespace tessara
