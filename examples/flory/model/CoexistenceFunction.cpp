#include "examples/flory/model/CoexistenceFunction.h"

#include <cmath>
#include <stdexcept>
#include <utility>
#include <vector>

#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/PhasePair.h"
#include "examples/flory/model/Spinodal.h"

namespace flory {

namespace {

/// Below this |sigma| r all phases are the critical one, to this accuracy.
constexpr double CRITICAL_REACH = 1e-12;
constexpr double OVERFLOW_REACH = 690;

CCoexistence CriticalState(const CSample& sample) {
    const CCriticalPoint point = CriticalPoint(sample);
    return {0, 0, point.dPhi, point.dPhi, point.dPhi, 0, point.dChi};
}

} // namespace

CCoexistenceFunction::CCoexistenceFunction(CSample sample)
    : m_sample(std::move(sample)), m_critical(CriticalState(m_sample)) {}

CCoexistence CCoexistenceFunction::At(double dSigma, double dVolume, double dRest) const {
    if (!std::isfinite(dSigma) || !(dVolume >= 0 && dRest >= 0 && std::abs(dVolume + dRest - 1) < 1e-9)) {
        throw std::invalid_argument("sigma must be finite and a phase volume lie between 0 and 1");
    }
    if (std::abs(dSigma) * m_sample.Longest() < CRITICAL_REACH) {
        CCoexistence critical = m_critical;
        critical.dVolume = dVolume;
        return critical;
    }
    CCoexistence c =
        dSigma < 0 ? FromDense(dSigma, dVolume, dRest) : Exchanged(FromDense(-dSigma, dRest, dVolume));
    c.dVolume = dVolume;
    return c;
}

CCoexistence CCoexistenceFunction::FromDense(double dSigma, double dThinVolume, double dDenseVolume) const {
    if (dDenseVolume < 1e-290 && dSigma * m_sample.Longest() < -OVERFLOW_REACH) {
        throw std::invalid_argument("sigma is beyond what a phase without volume can have");
    }
    std::vector<double> amounts(m_sample.Species());
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        amounts[i] =
            m_sample.Weight(i) / (dDenseVolume + dThinVolume * std::exp(dSigma * m_sample.Length(i)));
    }
    const CPhasePair pair = PhasePair(m_sample, amounts, dSigma);
    return {dSigma, dThinVolume, pair.dPhi, pair.dDense, pair.dThin, pair.dSolventLog, pair.dChi};
}

std::unique_ptr<CMultipartTable> PhaseVolumeLine(const CCoexistenceFunction& function, double dVolume,
                                                 int nPoints, const COrdinate& ordinate, double dReach) {
    if (nPoints < 2 || !(dReach > 0 && dReach <= 600)) {
        throw std::invalid_argument("a line of constant phase volume needs 2 points and a reach up to 600");
    }
    const double dEnd = std::asinh(dReach);
    CPartTable table(6);
    table.BeginPart(PHYSICAL);
    for (int i = 0; i < nPoints; ++i) {
        const double dSigma = std::sinh(dEnd * (2. * i / (nPoints - 1) - 1)) / function.Sample().Longest();
        const CCoexistence c = function.At(dSigma, dVolume);
        table.AddRow({c.dPhi, OrdinateOf(ordinate, c.dChi), c.dFirst, c.dSecond, c.dSigma, c.dChi});
    }
    return table.Make();
}

} // namespace flory
