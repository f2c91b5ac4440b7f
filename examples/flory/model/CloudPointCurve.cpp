#include "examples/flory/model/CloudPointCurve.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/PhysicalEnvelope.h"
#include "examples/flory/model/Searches.h"

namespace flory {

namespace {

/// The curve ends where sigma leaves these bounds.
constexpr double SIGMA_REACH = 600;
constexpr double LOWEST_SIGMA = -50;

} // namespace

CCloudPointCurve::CCloudPointCurve(CSample sample, int nPoints, double dThinnest)
    : m_function(std::move(sample)) {
    if (nPoints < 16 || nPoints > 10000000) {
        throw std::invalid_argument("a cloud-point curve needs 16 to 10000000 points");
    }
    if (!(dThinnest > 0 && dThinnest < 1)) {
        throw std::invalid_argument("the thinnest fraction must lie between 0 and 1");
    }
    SamplePoints(nPoints, dThinnest);
    FindCusps();
    CPhysicalEnvelope envelope(m_function, m_points, m_cusps);
    m_threePhasePoints = envelope.Corners();
    m_stretches = envelope.Stretches();
}

/// The last sigma of the curve in one direction, times the longest chain.
double CCloudPointCurve::Limit(double dFactor, double dThinnest) const {
    const double dLongest = m_function.Sample().Longest();
    const double dEnd = dFactor > 0 ? SIGMA_REACH : LOWEST_SIGMA * dLongest;
    double dReach = 1e-3;
    while (dReach < std::abs(dEnd)) {
        const CCoexistence c = m_function.At(std::copysign(dReach, dFactor) / dLongest, 0);
        if (std::min(c.dFirst, c.dSecond) < dThinnest) {
            return std::copysign(dReach, dFactor);
        }
        dReach *= 1.3;
    }
    return dEnd;
}

void CCloudPointCurve::SamplePoints(int nPoints, double dThinnest) {
    const double dStart = std::asinh(Limit(-1, dThinnest));
    const double dStep = (std::asinh(Limit(1, dThinnest)) - dStart) / (nPoints - 1);
    m_points.reserve(static_cast<std::size_t>(nPoints));
    for (int i = 0; i < nPoints; ++i) {
        m_points.push_back(m_function.At(std::sinh(dStart + i * dStep) / m_function.Sample().Longest(), 0));
    }
}

namespace {

/// ln of the cloud point's polymer fraction over its solvent fraction: it grows with the fraction, and keeps
/// its digits where that is almost 1. The solvent is told by the thinner phase.
double LogRatio(const CCoexistence& c) {
    return std::log(c.dFirst) -
           (c.dSigma < 0 ? std::log1p(-c.dSecond) + c.dSolventLog : std::log1p(-c.dFirst));
}

} // namespace

void CCloudPointCurve::FindCusps() {
    for (std::size_t i = 1; i + 1 < m_points.size(); ++i) {
        const double dHere = LogRatio(m_points[i]);
        const double dBefore = dHere - LogRatio(m_points[i - 1]);
        const double dAfter = LogRatio(m_points[i + 1]) - dHere;
        if ((dBefore < 0 && dAfter > 0) || (dBefore > 0 && dAfter < 0)) {
            const auto depth = [&](double dSigma) {
                const double dLog = LogRatio(m_function.At(dSigma, 0));
                return dAfter > 0 ? dLog : -dLog;
            };
            m_cusps.push_back(
                m_function.At(FindMinimum(depth, m_points[i - 1].dSigma, m_points[i + 1].dSigma), 0));
        }
    }
}

/// Moved by a hair into the run that is not physical: two physical runs then cross in the three-phase point
/// instead of touching there, and whether a touch is found is left to rounding.
double CCloudPointCurve::Join(std::size_t nNext) const {
    const CStretch& last = m_stretches[nNext - 1];
    const CStretch& next = m_stretches[nNext];
    const CCoexistence corner = m_function.At(next.dFirst, 0);
    const double dRun = last.bPhysical ? next.dLast - next.dFirst : last.dFirst - last.dLast;
    double dHair = HAIR * dRun;
    // Measured in the plane: what sigma moves a point by can be nothing or a lot.
    for (int i = 0; i < 3; ++i) {
        const CCoexistence moved = m_function.At(next.dFirst + dHair, 0);
        const double dWay =
            std::max(std::abs(moved.dFirst / corner.dFirst - 1), std::abs(moved.dChi / corner.dChi - 1));
        dHair = std::copysign(std::min(std::abs(dHair) * HAIR / dWay, std::abs(dRun) / 2), dRun);
    }
    return next.dFirst + dHair;
}

std::unique_ptr<CMultipartTable> CCloudPointCurve::Table(const COrdinate& ordinate) const {
    CPartTable table(5);
    const auto add = [&](const CCoexistence& c) {
        table.AddRow({c.dFirst, OrdinateOf(ordinate, c.dChi), c.dSecond, c.dSigma, c.dChi});
    };
    for (std::size_t n = 0; n < m_stretches.size(); ++n) {
        const double dFirst = n > 0 ? Join(n) : m_stretches[n].dFirst;
        const double dLast = n + 1 < m_stretches.size() ? Join(n + 1) : m_stretches[n].dLast;
        table.BeginPart(m_stretches[n].bPhysical ? PHYSICAL : NON_PHYSICAL);
        add(m_function.At(dFirst, 0));
        for (const CCoexistence& c : m_points) {
            if (c.dSigma > dFirst && c.dSigma < dLast) {
                add(c);
            }
        }
        add(m_function.At(dLast, 0));
    }
    return table.Make();
}

} // namespace flory
