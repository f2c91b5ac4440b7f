#include "examples/flory/model/PhysicalEnvelope.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "examples/flory/model/Searches.h"

namespace flory {

CPhysicalEnvelope::CPhysicalEnvelope(const CCoexistenceFunction& function,
                                     const std::vector<CCoexistence>& points,
                                     const std::vector<CCoexistence>& cusps)
    : m_function(function) {
    AddBranches(points, cusps);
    for (std::size_t i = 0; i < m_branches.size(); ++i) {
        for (std::size_t j = i + 1; j < m_branches.size(); ++j) {
            if (m_branches[i].bFalling && m_branches[j].bFalling) {
                AddCrossings(m_branches[i], m_branches[j]);
            }
        }
    }
    FindOwners();
}

void CPhysicalEnvelope::AddBranches(const std::vector<CCoexistence>& points,
                                    const std::vector<CCoexistence>& cusps) {
    m_branches.emplace_back();
    std::size_t nCusp = 0;
    for (const CCoexistence& point : points) {
        while (nCusp < cusps.size() && cusps[nCusp].dSigma <= point.dSigma) {
            m_branches.back().points.push_back(cusps[nCusp]);
            m_branches.push_back({{cusps[nCusp]}, false});
            ++nCusp;
        }
        if (m_branches.back().points.empty() || m_branches.back().points.back().dSigma < point.dSigma) {
            m_branches.back().points.push_back(point);
        }
    }
    for (CBranch& branch : m_branches) {
        branch.bFalling = branch.First() > branch.Last();
    }
}

CCoexistence CPhysicalEnvelope::PointAt(const CBranch& branch, double dPhi) const {
    const auto& points = branch.points;
    const auto next = std::partition_point(points.begin() + 1, points.end() - 1,
                                           [&](const CCoexistence& c) { return c.dFirst > dPhi; });
    const double dLog = std::log(dPhi);
    const auto distance = [&](double dSigma) { return std::log(m_function.At(dSigma, 0).dFirst) - dLog; };
    return m_function.At(FindZero(distance, (next - 1)->dSigma, next->dSigma), 0);
}

void CPhysicalEnvelope::AddCrossings(const CBranch& a, const CBranch& b) {
    const double dLow = std::log(std::max(a.Last(), b.Last()));
    const double dHigh = std::log(std::min(a.First(), b.First()));
    if (!(dLow < dHigh)) {
        return;
    }
    const auto difference = [&](double dLog) {
        return PointAt(a, std::exp(dLog)).dChi - PointAt(b, std::exp(dLog)).dChi;
    };
    constexpr int N_PIECES = 64;
    double dX = dLow, dY = difference(dLow);
    for (int i = 1; i <= N_PIECES; ++i) {
        const double dNextX = i < N_PIECES ? dLow + (dHigh - dLow) * i / N_PIECES : dHigh;
        const double dNextY = difference(dNextX);
        if ((dY < 0) != (dNextY < 0)) {
            m_crossings.push_back(std::exp(FindZero(difference, dX, dNextX)));
        }
        dX = dNextX, dY = dNextY;
    }
}

int CPhysicalEnvelope::LowestAt(double dPhi) const {
    int nLowest = -1;
    double dLowest = 0;
    for (std::size_t i = 0; i < m_branches.size(); ++i) {
        if (!m_branches[i].bFalling || !m_branches[i].Reaches(dPhi)) {
            continue;
        }
        const double dChi = PointAt(m_branches[i], dPhi).dChi;
        if (nLowest < 0 || dChi < dLowest) {
            nLowest = static_cast<int>(i), dLowest = dChi;
        }
    }
    return nLowest;
}

void CPhysicalEnvelope::FindOwners() {
    m_breaks = m_crossings;
    for (const CBranch& branch : m_branches) {
        if (branch.bFalling) {
            m_breaks.push_back(branch.First());
            m_breaks.push_back(branch.Last());
        }
    }
    std::sort(m_breaks.begin(), m_breaks.end(), std::greater<>());
    for (std::size_t i = 0; i + 1 < m_breaks.size(); ++i) {
        m_owners.push_back(LowestAt(std::sqrt(m_breaks[i] * m_breaks[i + 1])));
    }
}

CThreePhasePoint CPhysicalEnvelope::Corner(double dPhi, int nFirst, int nSecond) const {
    const CCoexistence a = PointAt(m_branches[static_cast<std::size_t>(nFirst)], dPhi);
    const CCoexistence b = PointAt(m_branches[static_cast<std::size_t>(nSecond)], dPhi);
    return {dPhi, (a.dChi + b.dChi) / 2, {a.dSigma, b.dSigma}, {a.dSecond, b.dSecond}};
}

std::vector<CThreePhasePoint> CPhysicalEnvelope::Corners() const {
    std::vector<CThreePhasePoint> corners;
    for (std::size_t i = 1; i < m_owners.size(); ++i) {
        const double dPhi = m_breaks[i];
        const bool bCrossing = std::find(m_crossings.begin(), m_crossings.end(), dPhi) != m_crossings.end();
        const int nFirst = std::min(m_owners[i - 1], m_owners[i]);
        const int nSecond = std::max(m_owners[i - 1], m_owners[i]);
        if (bCrossing && nFirst >= 0 && nFirst != nSecond) {
            corners.push_back(Corner(dPhi, nFirst, nSecond));
        }
    }
    return corners;
}

std::vector<CCloudPointCurve::CStretch> CPhysicalEnvelope::Stretches() const {
    std::vector<CCloudPointCurve::CStretch> stretches;
    const auto add = [&](double dFirst, double dLast, bool bPhysical) {
        if (!stretches.empty() && stretches.back().bPhysical == bPhysical) {
            stretches.back().dLast = dLast;
        } else if (dFirst < dLast) {
            stretches.push_back({dFirst, dLast, bPhysical});
        }
    };
    for (std::size_t n = 0; n < m_branches.size(); ++n) {
        const CBranch& branch = m_branches[n];
        double dSigma = branch.points.front().dSigma;
        for (std::size_t i = 0; branch.bFalling && i < m_owners.size(); ++i) {
            if (branch.Reaches(m_breaks[i]) && branch.Reaches(m_breaks[i + 1])) {
                const bool bEnd = m_breaks[i + 1] == branch.Last();
                const double dNext =
                    bEnd ? branch.points.back().dSigma : PointAt(branch, m_breaks[i + 1]).dSigma;
                add(dSigma, dNext, m_owners[i] == static_cast<int>(n));
                dSigma = dNext;
            }
        }
        if (!branch.bFalling) {
            add(dSigma, branch.points.back().dSigma, false);
        }
    }
    return stretches;
}

} // namespace flory
