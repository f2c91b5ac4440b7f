#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "examples/flory/model/LinearEquations.h"
#include "examples/flory/model/PhaseState.h"
#include "examples/flory/model/Sample.h"

namespace flory {

/// Looks for a phase that would lower the free energy of phases in equilibrium.
///
/// A phase on their common tangent plane, or with the least distance from it, has exp(s r_i) times as much of
/// species i as the densest of them. Along s the distance has an extremum where
///
///     E(s) = s - ln(solvent of the phase over that of the densest) - 2 chi (its fraction - the densest's)
///
/// is zero, a minimum where E rises. E can fall only where the fraction times the longest chain exceeds
/// 1/(2 chi) and the solvent's fraction does. That stretch is searched in steps in which r_w times the
/// fraction changes by a quarter, and finer around a phase of the state that is nearly critical; within a
/// step by the slope of E. So a minimum is missed only where E turns twice within a step.
class CPhaseScan {
public:
    /// REQUIRES: the species' fractions in the densest phase of the state.
    CPhaseScan(const CSample& sample, const CVector& densest, const CPhaseState& state);

    /// s of the phase that undercuts the others most; nothing when none does by more than rounding.
    std::optional<double> Rival() const;

private:
    struct CPoint {
        double s;
        double dE;
        double dSolvent; ///< fraction; negative where the phase would hold more than the whole volume
        double dSlope;   ///< of E
        double dLength;  ///< r_z of the phase: how fast r_w times the fraction changes with s
        double dReach;   ///< 2 chi times the longest chain times the fraction
    };

    CPoint At(double s) const;
    double E(double s) const { return At(s).dE; }
    /// chi from which on a phase undercuts the nearest of the state, as CTangentPlane has it.
    double X(double s) const;
    std::size_t Nearest(double s) const;
    /// An s at which the solvent is too little for E to fall, or next to it.
    double RightEnd() const;
    std::vector<CPoint> Grid() const;
    /// s of the minima of the distance.
    std::vector<double> Minima() const;
    bool HoldsKnown(double dFrom, double dTo) const;
    bool IsKnown(double s) const;

    const CSample& m_sample;
    const CPhaseState& m_state;
    std::vector<CVector> m_phases; ///< fractions of the species, from which others are told without loss
};

} // namespace flory
