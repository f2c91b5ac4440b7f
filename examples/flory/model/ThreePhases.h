#pragma once

#include <array>
#include <optional>
#include <vector>

#include "examples/flory/model/Coexistence.h"
#include "examples/flory/model/Sample.h"

namespace flory {

/// Three phases in equilibrium, by ascending polymer fraction. Species i is exp(dSigmas[k] r_i) times as
/// concentrated in phase k as in the last, densest one.
struct CThreePhases {
    std::array<double, 3> dSigmas; ///< the last is 0
    std::array<double, 3> dVolumes;
    std::array<double, 3> dPhis;
    double dChi;
};

/// The states of three phases of a solution with the polymer fraction phi_0, from one in which a phase just
/// appears to the one in which a phase vanishes.
///
/// Every two phases obey the conditions of PhasePair; phi_0 and chi must be the same for both pairs. These
/// conditions are followed along the arc by prediction and Newton's method.
class CThreePhaseLine {
public:
    /// Where a third phase without volume joins two.
    struct COnset {
        CCoexistence pair;
        CThreePhases phases;
        int nNew; ///< the phase without volume
    };

    /// REQUIRES: dPhi in (0, 1).
    CThreePhaseLine(const CSample& sample, double dPhi);

    /// The onset near two phases, the second being the denser, and a third one with exp(s r_i) times as much
    /// of species i as the second. Nothing when there is none so near.
    std::optional<COnset> Onset(const CCoexistence& pair, double s) const;
    /// The states from an onset on. The last one has a phase without volume, unless the line ends within
    /// the domain, or after N_STATES states.
    std::vector<CThreePhases> Trace(const COnset& onset) const;

    static constexpr int N_STATES = 600;

private:
    /// ln(-sigma) of the two thinner phases relative to the densest; volumes of the two and of the densest.
    using CVector = std::array<double, 5>;

    CVector Residuals(const CVector& p) const;
    CVector Steps(const CVector& p) const;
    std::array<CVector, 5> Jacobian(const CVector& p, const CVector& row) const;
    bool Correct(CVector& p, const CVector& row, double dTarget) const;
    std::optional<CVector> Tangent(const CVector& p, const CVector& row) const;
    CThreePhases State(const CVector& p) const;

    CSample m_sample;
    double m_dPhi;
};

} // namespace flory
