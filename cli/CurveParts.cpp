#include "cli/CurveParts.h"

#include <algorithm>
#include <cmath>

namespace tessara {

namespace {

/// Where on the way from dFrom (0) to dTo (1), which differ, a level lies. Halves, since a difference may
/// overflow.
double PlaceOf(double dLevel, double dFrom, double dTo) {
    return (dLevel / 2 - dFrom / 2) / (dTo / 2 - dFrom / 2);
}

/// Narrows the stretch t0..t1 of a segment to where one of its coordinates lies between two levels.
void Narrow(double dFrom, double dTo, double dMin, double dMax, double& t0, double& t1) {
    if (dFrom == dTo) {
        t1 = dFrom >= dMin && dFrom <= dMax ? t1 : -1;
        return;
    }
    t0 = std::max(t0, PlaceOf(dFrom < dTo ? dMin : dMax, dFrom, dTo));
    t1 = std::min(t1, PlaceOf(dFrom < dTo ? dMax : dMin, dFrom, dTo));
}

/// Rounding does not lead out of the window.
double Between(double dFrom, double dTo, double t, double dMin, double dMax) {
    return std::clamp(std::lerp(dFrom, dTo, t), dMin, dMax);
}

/// The value of a further column at a place. The ends are exact, also beside a gap.
double ValueAt(const std::vector<double>* pColumn, std::size_t nEnd, double dWay) {
    if (!pColumn) {
        return std::numeric_limits<double>::quiet_NaN();
    }
    if (dWay == 0 || dWay == 1) {
        return (*pColumn)[dWay == 0 ? nEnd - 1 : nEnd];
    }
    return LerpOverGaps((*pColumn)[nEnd - 1], (*pColumn)[nEnd], dWay);
}

} // namespace

void CCurveParts::Add(const std::vector<double>& x, const std::vector<double>& y, int nColor,
                      const CFurtherColumns& further) {
    m_nColor = nColor;
    m_bOpen = false;
    for (std::size_t i = 0; i < x.size(); i++) {
        if (std::isnan(y[i])) {
            m_bOpen = false;
        } else if (i > 0 && !std::isnan(y[i - 1])) {
            AddSegment({x[i - 1], y[i - 1]}, {x[i], y[i]}, i, further);
        } else if (m_Window.Contains(x[i], y[i])) {
            AddPoint({x[i], y[i]}, {i, 1}, further);
        }
    }
}

void CCurveParts::AddSegment(POINT2D from, POINT2D to, std::size_t nEnd, const CFurtherColumns& further) {
    double t0 = 0;
    double t1 = 1;
    Narrow(from.dX, to.dX, m_Window.dXMin, m_Window.dXMax, t0, t1);
    Narrow(from.dY, to.dY, m_Window.dYMin, m_Window.dYMax, t0, t1);
    const auto add = [&](double t) {
        AddPoint({Between(from.dX, to.dX, t, m_Window.dXMin, m_Window.dXMax),
                  Between(from.dY, to.dY, t, m_Window.dYMin, m_Window.dYMax)},
                 {nEnd, t}, further);
    };
    if (t0 <= t1 && !m_bOpen) {
        add(t0);
    }
    if (t0 <= t1) {
        add(t1);
    }
    m_bOpen = t0 <= t1 && t1 == 1;
}

void CCurveParts::AddPoint(POINT2D point, PLACE place, const CFurtherColumns& further) {
    if (!m_bOpen) {
        m_Parts.push_back({static_cast<int>(m_X.size()), m_nColor});
        m_bOpen = true;
    }
    m_X.push_back(point.dX);
    m_Y.push_back(point.dY);
    for (std::size_t i = 0; i < m_Further.size(); i++) {
        m_Further[i].push_back(ValueAt(further[i], place.nEnd, place.dWay));
    }
}

template <class TARGET>
void CCurveParts::SetParts(TARGET& target, int nColors) const {
    for (std::size_t i = 0; i < m_Parts.size(); i++) {
        const bool bLast = i + 1 == m_Parts.size();
        target.BeginPart(m_Parts[i].nFirst, m_Parts[i].nColor);
        target.EndPart((bLast ? target.m_nPoints : m_Parts[i + 1].nFirst) - 1);
    }
    target.SetNumColors(nColors);
}

std::unique_ptr<CMultipartCurve> CCurveParts::Make(int nColors) const {
    auto pCurve = std::make_unique<CMultipartCurve>(static_cast<int>(m_X.size()));
    std::copy(m_X.begin(), m_X.end(), pCurve->m_pX);
    std::copy(m_Y.begin(), m_Y.end(), pCurve->m_pY);
    SetParts(*pCurve, nColors);
    return pCurve;
}

std::unique_ptr<CMultipartTable> CCurveParts::MakeTable(int nColors, int nX, int nY) const {
    const int nColumns = 2 + static_cast<int>(m_Further.size());
    auto pTable = std::make_unique<CMultipartTable>(nColumns);
    pTable->Allocate(static_cast<int>(m_X.size()));
    auto pFurther = m_Further.begin();
    for (int i = 0; i < nColumns; i++) {
        const std::vector<double>& column = i == nX ? m_X : i == nY ? m_Y : *pFurther++;
        std::copy(column.begin(), column.end(), pTable->m_ppData[i]);
    }
    SetParts(*pTable, nColors);
    return pTable;
}

} // namespace tessara
