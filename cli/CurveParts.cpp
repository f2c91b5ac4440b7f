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

} // namespace

void CCurveParts::Add(const std::vector<double>& x, const std::vector<double>& y, int nColor) {
    m_nColor = nColor;
    m_bOpen = false;
    for (std::size_t i = 0; i < x.size(); i++) {
        if (std::isnan(y[i])) {
            m_bOpen = false;
        } else if (i > 0 && !std::isnan(y[i - 1])) {
            AddSegment({x[i - 1], y[i - 1]}, {x[i], y[i]});
        } else if (m_Window.Contains(x[i], y[i])) {
            AddPoint({x[i], y[i]});
        }
    }
}

void CCurveParts::AddSegment(POINT2D from, POINT2D to) {
    double t0 = 0;
    double t1 = 1;
    Narrow(from.dX, to.dX, m_Window.dXMin, m_Window.dXMax, t0, t1);
    Narrow(from.dY, to.dY, m_Window.dYMin, m_Window.dYMax, t0, t1);
    const auto add = [&](double t) {
        AddPoint({Between(from.dX, to.dX, t, m_Window.dXMin, m_Window.dXMax),
                  Between(from.dY, to.dY, t, m_Window.dYMin, m_Window.dYMax)});
    };
    if (t0 <= t1 && !m_bOpen) {
        add(t0);
    }
    if (t0 <= t1) {
        add(t1);
    }
    m_bOpen = t0 <= t1 && t1 == 1;
}

void CCurveParts::AddPoint(POINT2D point) {
    if (!m_bOpen) {
        m_Parts.push_back({static_cast<int>(m_X.size()), m_nColor});
        m_bOpen = true;
    }
    m_X.push_back(point.dX);
    m_Y.push_back(point.dY);
}

template <class TARGET>
void CCurveParts::Fill(TARGET& target, double* pX, double* pY, int nColors) const {
    std::copy(m_X.begin(), m_X.end(), pX);
    std::copy(m_Y.begin(), m_Y.end(), pY);
    for (std::size_t i = 0; i < m_Parts.size(); i++) {
        const bool bLast = i + 1 == m_Parts.size();
        target.BeginPart(m_Parts[i].nFirst, m_Parts[i].nColor);
        target.EndPart((bLast ? target.m_nPoints : m_Parts[i + 1].nFirst) - 1);
    }
    target.SetNumColors(nColors);
}

std::unique_ptr<CMultipartCurve> CCurveParts::Make(int nColors) const {
    auto pCurve = std::make_unique<CMultipartCurve>(static_cast<int>(m_X.size()));
    Fill(*pCurve, pCurve->m_pX, pCurve->m_pY, nColors);
    return pCurve;
}

std::unique_ptr<CMultipartTable> CCurveParts::MakeTable(int nColors) const {
    auto pTable = std::make_unique<CMultipartTable>(2);
    pTable->Allocate(static_cast<int>(m_X.size()));
    Fill(*pTable, pTable->m_ppData[0], pTable->m_ppData[1], nColors);
    return pTable;
}

} // namespace tessara
