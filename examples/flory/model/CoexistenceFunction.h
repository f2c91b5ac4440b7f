#pragma once

#include <memory>

#include "examples/flory/model/Coexistence.h"
#include "examples/flory/model/Interaction.h"
#include "examples/flory/model/Sample.h"
#include "tessara/numeric/MultipartTable.h"

namespace flory {

/// Every equilibrium of two phases of a sample, as a function of sigma (see CCoexistence) and of the volume
/// fraction v of the second phase: v = 0 is the cloud-point curve and its shadow, another constant v a line
/// of constant phase volume. At sigma = 0 all meet in the critical point.
///
/// (sigma, v) and (-sigma, 1 - v) are the same equilibrium with the phases exchanged. Not all of them can be
/// observed: see CCloudPointCurve and CBinodalSection. Const functions may be called from several threads.
///
///     const CCoexistence point = CCoexistenceFunction(sample).At(-0.005, 0);
class CCoexistenceFunction {
public:
    explicit CCoexistenceFunction(CSample sample);

    const CSample& Sample() const { return m_sample; }

    /// REQUIRES: v in [0, 1], sigma finite, and no concentration ratio that overflows: sigma times the
    /// longest chain at most 690 where v = 0, at least -690 where v = 1 (std::invalid_argument).
    CCoexistence At(double dSigma, double dVolume) const { return At(dSigma, dVolume, 1 - dVolume); }
    /// The same with 1 - v given too, for a v so near 1 that the difference would be lost.
    CCoexistence At(double dSigma, double dVolume, double dRest) const;

private:
    CCoexistence FromDense(double dSigma, double dThinVolume, double dDenseVolume) const;

    CSample m_sample;
    CCoexistence m_critical;
};

/// A line of constant phase volume v in [0, 1]: nPoints >= 2 points with |sigma| longest chain up to
/// dReach in (0, 600], spaced evenly in asinh(sigma longest chain). One part of colour 0; the columns are
/// phi_0, the ordinate, first phase, second phase, sigma, chi. Other arguments throw std::invalid_argument.
std::unique_ptr<CMultipartTable> PhaseVolumeLine(const CCoexistenceFunction& function, double dVolume,
                                                 int nPoints, const COrdinate& ordinate = {},
                                                 double dReach = 600);

} // namespace flory
