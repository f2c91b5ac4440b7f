#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "examples/flory/model/LinearEquations.h"
#include "examples/flory/model/PhaseState.h"
#include "examples/flory/model/Sample.h"

namespace flory {

/// The conditions that several phases of a solution obey together, one fewer than unknowns: they leave a
/// curve of states.
///
/// The unknowns are ln(-sigma) of each phase relative to the next denser one, then the phases' volumes, by
/// ascending polymer fraction: 2 P - 1 for P phases. Every two neighbours obey the conditions of PhasePair,
/// so that nothing cancels where they are almost the same; each pair gives the polymer fraction phi_0 of the
/// whole, which is known, and chi, which must be the same for all; the volumes sum to 1.
///
/// REQUIRES: phi_0 in (0, 1).
class CPhaseEquations {
public:
    CPhaseEquations(const CSample& sample, double dPhi) : m_sample(sample), m_dPhi(dPhi) {}

    static std::size_t Phases(const CVector& p) { return (p.size() + 1) / 2; }
    /// The place of a phase's volume among the unknowns.
    static std::size_t Volume(const CVector& p, std::size_t nPhase) { return Phases(p) - 1 + nPhase; }
    /// sigma of each phase relative to the densest.
    static CVector Sigmas(const CVector& p);
    /// The unknowns of phases with these sigmas, ascending, and volumes.
    static CVector Unknowns(const CVector& sigmas, const CVector& volumes);

    /// The equations at a place, and how they change with the unknowns.
    struct CLinear {
        CVector residuals;           ///< each relative to what it is about
        std::vector<CVector> slopes; ///< of the residuals
        double dLogChi;
        CVector logChiSlopes;
    };
    CLinear At(const CVector& p) const;

    /// One more equation, so that there are as many as unknowns: its residual and slopes at a place.
    struct CEquation {
        double dResidual;
        CVector slopes;
    };
    using CCondition = std::function<CEquation(const CVector& p, const CLinear& at)>;
    /// An unknown has a value.
    static CCondition Fixed(std::size_t nUnknown, double dValue);

    /// The place near p where everything holds; nothing when Newton's method finds none.
    std::optional<CVector> Corrected(CVector p, const CCondition& condition) const;
    /// The direction along the curve in which slopes grow by 1; nothing where there is none.
    static std::optional<CVector> Direction(const CLinear& at, const CVector& slopes);

    CPhaseState State(const CVector& p) const;
    /// Volume fractions of the species in the densest phase.
    CVector Densest(const CVector& p) const;

    const CSample& Sample() const { return m_sample; }

private:
    class CSums;
    std::vector<CSums> Sums(const CVector& p) const;

    CSample m_sample;
    double m_dPhi;
};

} // namespace flory
