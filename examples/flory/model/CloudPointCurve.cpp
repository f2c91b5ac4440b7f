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

void CCloudPointCurve::FindCusps() {
    for (std::size_t i = 1; i + 1 < m_points.size(); ++i) {
        const double dBefore = m_points[i].dFirst - m_points[i - 1].dFirst;
        const double dAfter = m_points[i + 1].dFirst - m_points[i].dFirst;
        if ((dBefore < 0 && dAfter > 0) || (dBefore > 0 && dAfter < 0)) {
            const auto depth = [&](double dSigma) {
                const double dLog = std::log(m_function.At(dSigma, 0).dFirst);
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
    constexpr double HAIR = 1e-8;
    const CStretch& last = m_stretches[nNext - 1];
    const CStretch& next = m_stretches[nNext];
    const double dHair = HAIR * (last.bPhysical ? next.dLast - next.dFirst : last.dFirst - last.dLast);
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
