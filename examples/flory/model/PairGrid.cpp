#include "examples/flory/model/PairGrid.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "examples/flory/model/Functions.h"

namespace flory {

namespace {

constexpr double FIRST_REACH = 1e-6;
/// What stands for H of a phase without solvent.
constexpr double FULL = 1e3;
constexpr double VOLUME_MARGIN = 8;
/// A phase of less volume than exp of minus this is taken for one of that volume: no ratio may overflow.
constexpr double LARGEST_LOG = 580;

/// sigma times the longest chain from which on chi exceeds the maximum: chi is more than (sigma + t)/2, and
/// H(t) is a mean of H(sigma r)/r over the species.
double SigmaReach(const CSample& sample, double dMaxChi) {
    double dSigma = FIRST_REACH / sample.Longest();
    double dChi = 0;
    while (dChi < dMaxChi) {
        dSigma *= 1.2;
        const double dLeast = std::min(ExcessH(dSigma * sample.Shortest()) / sample.Shortest(),
                                       ExcessH(dSigma * sample.Longest()) / sample.Longest());
        dChi = (dSigma + InverseExcessH(dLeast)) / 2;
    }
    return dSigma * sample.Longest();
}

} // namespace

CPairGrid::CPairGrid(const CCoexistenceFunction& function, double dMaxChi)
    : m_function(function), m_dReach(SigmaReach(function.Sample(), dMaxChi)) {
    const std::size_t nSpecies = function.Sample().Species();
    m_thin.resize(nSpecies);
    m_less.resize(nSpecies);
    m_mean.resize(nSpecies);
}

CPairGrid::CPlace CPairGrid::PlaceAt(double x, double y) const {
    const double dReach = std::max(FIRST_REACH, std::sinh(std::asinh(m_dReach) * x / (COLUMNS - 1)));
    const double dEnd = std::min(dReach + VOLUME_MARGIN, LARGEST_LOG);
    const double dBorder = 1 / (1 + std::exp(dEnd));
    const double dFromEnd = std::min(y, ROWS - 1 - y);
    double dLess = dFromEnd * dBorder; // of v and 1 - v
    if (dFromEnd >= 1) {
        dLess = 1 / (1 + std::exp(dEnd * (1 - 2 * (dFromEnd - 1) / (ROWS - 3))));
    }
    if (dReach > LARGEST_LOG) {
        dLess = std::max(dLess, dBorder);
    }
    const double dSigma = dReach / m_function.Sample().Longest();
    return 2 * y < ROWS - 1 ? CPlace{dSigma, dLess, 1 - dLess} : CPlace{dSigma, 1 - dLess, dLess};
}

CCoexistence CPairGrid::At(double x, double y) const {
    const CPlace place = PlaceAt(x, y);
    return m_function.At(place.dSigma, place.dVolume, place.dRest);
}

void CPairGrid::KeepColumn(double dSigma) {
    if (dSigma == m_dSigma) {
        return;
    }
    m_dSigma = dSigma;
    for (std::size_t i = 0; i < m_thin.size(); ++i) {
        const double r = m_function.Sample().Length(i);
        m_less[i] = std::expm1(-dSigma * r);
        m_thin[i] = std::exp(-dSigma * r);
        m_mean[i] = m_less[i] * ExcessH(dSigma * r) / r;
    }
}

/// In the names of PhasePair: phi_0 exceeds phi when 1/phi_0 = A0 + A1/u is less than 1/phi, and so when t is
/// farther from 0 than the t of phi. H(t) is known, so that its inverse is not needed.
double CPairGrid::Excess(double x, double y, double dPhi) {
    const CPlace place = PlaceAt(x, y);
    KeepColumn(place.dSigma);
    const CSample& sample = m_function.Sample();
    double dA0 = 0, dA1 = 0, dMean = 0;
    for (std::size_t i = 0; i < m_thin.size(); ++i) {
        const double dAmount = sample.Weight(i) / (place.dVolume + place.dRest * m_thin[i]);
        dA0 += dAmount;
        dA1 += dAmount * m_less[i];
        dMean += dAmount * m_mean[i];
    }
    const double dRoom = 1 / dPhi - dA0;
    const double dFull = dMean / dA1; // H(t)
    return dRoom > 0 ? dFull - ExcessH(std::log1p(-dA1 / dRoom)) : dFull - FULL;
}

} // namespace flory
