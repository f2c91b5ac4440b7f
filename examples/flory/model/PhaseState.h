#pragma once

#include <cstddef>
#include <vector>

namespace flory {

/// Several phases in equilibrium, by ascending polymer fraction. Species i is exp(sigmas[k] r_i) times as
/// concentrated in phase k as in the last, densest one.
struct CPhaseState {
    std::vector<double> sigmas; ///< ascending, the last is 0
    std::vector<double> volumes;
    std::vector<double> phis;     ///< polymer fractions
    std::vector<double> solvents; ///< solvent fractions, each with all its digits
    double dChi;

    std::size_t Phases() const { return sigmas.size(); }
};

} // namespace flory
