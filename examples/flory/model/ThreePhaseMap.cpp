#include "examples/flory/model/ThreePhaseMap.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "examples/flory/model/MultiplePoints.h"

namespace flory {

namespace {

constexpr int N_COLUMNS = 7;

} // namespace

CThreePhaseMap::CThreePhaseMap(double dFirstLength, double dSecondLength, double dFirst, double dLast,
                               int nRows)
    : m_dFirstLength(dFirstLength), m_dSecondLength(dSecondLength), m_dFirst(dFirst), m_dLast(dLast),
      m_nRows(nRows) {
    static_cast<void>(CSample({dFirstLength, dSecondLength}, {1, 1})); // refuses bad lengths
    if (!(dFirst > 0 && dFirst < 1 && dLast > 0 && dLast < 1) || nRows < 1) {
        throw std::invalid_argument("a three-phase map needs weights between 0 and 1 and at least one row");
    }
}

double CThreePhaseMap::Weight(int nRow) const {
    const double dStart = std::log(m_dFirst / (1 - m_dFirst));
    const double dEnd = std::log(m_dLast / (1 - m_dLast));
    return 1 / (1 + std::exp(-(m_nRows > 1 ? dStart + (dEnd - dStart) * nRow / (m_nRows - 1) : dStart)));
}

bool CThreePhaseMap::Compute(const CRowProgress& progress) {
    m_points.clear();
    for (int nRow = 0; nRow < m_nRows; ++nRow) {
        if (progress && !progress(nRow, m_nRows)) {
            return false;
        }
        const double w = Weight(nRow);
        const CCloudPointCurve curve(CSample({m_dFirstLength, m_dSecondLength}, {1 - w, w}));
        for (const CThreePhasePoint& point : curve.ThreePhasePoints()) {
            m_points.push_back({w, point, false});
        }
    }
    AddCriticalEndPoints();
    return !progress || progress(m_nRows, m_nRows);
}

void CThreePhaseMap::AddCriticalEndPoints() {
    const auto logit = [](double w) { return std::log(w / (1 - w)); };
    const double dStart = logit(std::min(m_dFirst, m_dLast)), dEnd = logit(std::max(m_dFirst, m_dLast));
    const CSampleLine line = LineOfSamples({m_dFirstLength, m_dSecondLength});
    for (const CCriticalEndPoint& end : CriticalEndPoints(line, dStart, dEnd)) {
        CThreePhasePoint point{
            end.critical.dPhi, end.critical.dChi, {0, end.dS}, {end.critical.dPhi, end.dOther}};
        if (end.dS < 0) {
            std::swap(point.dSigmas[0], point.dSigmas[1]);
            std::swap(point.dShadows[0], point.dShadows[1]);
        }
        m_points.push_back({end.sample.Weight(1), point, true});
    }
    std::stable_sort(m_points.begin(), m_points.end(),
                     [](const CPoint& a, const CPoint& b) { return a.dW < b.dW; });
}

std::unique_ptr<CTable> CThreePhaseMap::Table(const COrdinate& ordinate) const {
    std::vector<CPoint> shown;
    for (const CPoint& point : m_points) {
        if (std::isfinite(OrdinateOf(ordinate, point.point.dChi))) {
            shown.push_back(point);
        }
    }
    auto pTable = std::make_unique<CTable>(N_COLUMNS);
    if (shown.empty()) {
        return pTable;
    }
    pTable->Allocate(static_cast<int>(shown.size()));
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const CThreePhasePoint& p = shown[i].point;
        const double row[] = {shown[i].dW,   p.dPhi, OrdinateOf(ordinate, p.dChi),   p.dShadows[0],
                              p.dShadows[1], p.dChi, shown[i].bCriticalEnd ? 2. : 3.};
        for (int nColumn = 0; nColumn < N_COLUMNS; ++nColumn) {
            pTable->m_ppData[nColumn][i] = row[nColumn];
        }
    }
    return pTable;
}

} // namespace flory
