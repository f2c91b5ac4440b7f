#pragma once

#include <optional>
#include <vector>

#include "examples/flory/model/PhaseEquations.h"
#include "examples/flory/model/Progress.h"

namespace flory {

/// What a solution of one polymer fraction separates into while chi grows from its cloud point to a maximum.
///
/// At each chi there is one state of least free energy, and it changes continuously. So the path is followed:
/// by prediction and Newton's method as long as the phases stay the same, and over the events at which they
/// change: a phase is used up, or a further one appears on the tangent plane of the others. Each event is
/// solved for. A step counts only when chi grows, every volume is positive and no further phase has less free
/// energy (CPhaseScan); otherwise it is made shorter.
///
/// Runs of states with the same number of phases follow one another without gap or overlap: each begins at
/// the chi at which the one before ends. They end at the maximum of chi unless a step could not be made:
/// LastChi then tells how far states are known.
///
/// REQUIRES: dPhi in (0, 1).
class CPhysicalPath {
public:
    CPhysicalPath(const CSample& sample, double dPhi, double dMaxChi, const CRowProgress& progress = {});

    using CRun = std::vector<CPhaseState>;

    /// Runs by ascending chi, of at least two states each; the first begins at the cloud point. None when the
    /// cloud point lies beyond the maximum.
    const std::vector<CRun>& Runs() const { return m_runs; }
    bool IsComplete() const { return m_bComplete; }
    double LastChi() const { return m_dLastChi; }

private:
    /// A place on the path with its state and the direction in which chi grows.
    struct CPlace {
        CVector p;
        CPhaseState state;
        CVector direction; ///< of length 1 by the scales
        CVector scales;    ///< by how much an unknown may change until the equations change by about 1
    };

    bool Begin();
    std::optional<CPlace> PlaceAt(const CVector& p) const;
    std::optional<double> RivalOf(const CVector& p, const CPhaseState& state) const;
    void Follow(const CRowProgress& progress);
    bool Step(double dLength);
    bool Take(const CVector& p);
    bool TakeChange(const CVector& last, const CVector& next);
    bool IsNear(const CPhaseState& next) const;
    std::optional<CVector> Apart(const CVector& p) const;
    std::optional<CVector> Ended(const CVector& p) const;
    std::optional<CVector> WithoutUsedUp(const CVector& p) const;
    std::optional<CVector> WithNew(const CVector& p, double s) const;

    CPhaseEquations m_equations;
    double m_dPhi;
    double m_dMaxChi;
    double m_dFirstChi = 0;
    double m_dLastChi = 0;
    bool m_bComplete = false;
    std::optional<CPlace> m_place;
    std::vector<CRun> m_runs;
};

} // namespace flory
