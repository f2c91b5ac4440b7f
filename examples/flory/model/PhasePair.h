#pragma once

#include <vector>

#include "examples/flory/model/Sample.h"

namespace flory {

/// How a phase of known relative composition is in equilibrium with a thinner one: the exact solution of the
/// coexistence conditions, for any number of further phases.
///
/// The denser phase holds phi_0 a_i of species i, phi_0 being the polymer fraction of the whole; the thinner
/// one exp(sigma r_i) times that, with sigma < 0. With H of ExcessH, E_i = exp(sigma r_i) - 1,
/// A0 = sum a_i and A1 = sum a_i E_i the conditions are
///
///     H(t) = sum (a_i/r_i) E_i H(sigma r_i) / A1,  t < 0,  phi_0 = u/(A1 + u A0),  u = 1 - exp(-t),
///     chi = (sigma + t)/(2 phi_0 A1)
///
/// Agrees with de Souza and Stone, arXiv:2404.17649.
struct CPhasePair {
    double dPhi;        ///< phi_0
    double dDense;      ///< polymer fraction of the denser phase, phi_0 A0
    double dThin;       ///< polymer fraction of the thinner phase
    double dSolventLog; ///< t, ln of the denser phase's solvent fraction over the thinner's
    double dChi;
};

/// REQUIRES: as many amounts a_i >= 0 as species, not all zero, and dSigma < 0. Not-a-number otherwise.
CPhasePair PhasePair(const CSample& sample, const std::vector<double>& amounts, double dSigma);

} // namespace flory
