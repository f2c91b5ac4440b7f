#pragma once

#include <memory>
#include <vector>

#include "examples/flory/model/CoexistenceFunction.h"
#include "examples/flory/model/ThreePhases.h"

namespace flory {

/// What a solution of one polymer fraction separates into, chi by chi (temperature by temperature): the
/// compositions and volumes of two phases, and of three where there are three.
///
/// Pairs of phases are followed in sigma, with all volumes that give the solution its fraction, and not in
/// chi: near the critical fraction both phases hardly depend on chi. Pairs that a third phase would undercut
/// are non-physical; there the lines of three phases take their place. A sample of more than two lengths may
/// have more than three phases; these are not looked for.
///
/// Phases, volumes and chi of every row are accurate to about 1e-9, ends of parts likewise. A section takes
/// about a tenth of a second.
///
/// REQUIRES: dPhi in (0, 1) and dMaxChi, the largest chi that is shown, above the critical one and up to
/// 1000; 0 stands for twice that (std::invalid_argument).
class CBinodalSection {
public:
    CBinodalSection(CSample sample, double dPhi, double dMaxChi = 0);

    /// A run of states of two phases, the second being the denser (sigma > 0).
    /// An arc that leaves the range of chi ends with its last state within.
    struct CArc {
        std::vector<CCoexistence> states;
        bool bPhysical;
    };

    const std::vector<CArc>& Arcs() const { return m_arcs; }
    /// Lines of states of three phases.
    const std::vector<std::vector<CThreePhases>>& ThreePhaseLines() const { return m_lines; }

    /// The section in the colours of PartColor. The columns are the fractions of the thinner and of the
    /// denser phase, the ordinate, the volume of the denser phase, sigma, chi. A line of three phases gives a
    /// part of its thinnest and densest phase, and one with the middle phase in both columns, its own volume,
    /// and sigma from the thinnest to it.
    std::unique_ptr<CMultipartTable> Table(const COrdinate& ordinate = {}) const;

private:
    /// A pair of phases at a place of the grid on which the section is found.
    struct CPlace {
        double x;
        double y;
        CCoexistence state;
        double dRival; ///< Rival of the state
    };

    CCoexistence StateAt(double x, double y) const;
    CPlace PlaceAt(double x, double y) const;
    void AddLine(const std::vector<CPlace>& places);
    void AddBorder(CPlace last, CPlace next);
    void Approach(CPlace& last, CPlace& next) const;
    void AddThreePhases(const CThreePhaseLine::COnset& onset);
    /// The s of the phase, relative to the denser one, that undercuts a pair most; 0 when none does.
    double Rival(const CCoexistence& pair) const;

    CCoexistenceFunction m_function;
    double m_dPhi;
    double m_dMaxChi;
    double m_dReach; ///< of sigma times the longest chain
    CThreePhaseLine m_threePhases;
    std::vector<CArc> m_arcs;
    std::vector<std::vector<CThreePhases>> m_lines;
};

} // namespace flory
