#pragma once

#include <memory>
#include <vector>

#include "examples/flory/model/CoexistenceFunction.h"
#include "examples/flory/model/PhysicalPath.h"

namespace flory {

/// What a solution of one polymer fraction separates into, chi by chi (temperature by temperature): the
/// compositions and volumes of two phases, and of three or more where there are as many.
///
/// What can be observed is followed from the cloud point on (CPhysicalPath), so that there is one state at
/// every chi from there to the maximum. Other pairs of phases that obey the conditions, but which a further
/// phase would undercut, are found on a grid of sigma and volume; they are non-physical. Very small ones may
/// be missed.
///
/// Phases, volumes and chi of every row are accurate to about 1e-9, physical ends of parts likewise. A
/// section of a few chain lengths takes some hundredths of a second; the time grows with their number.
///
/// REQUIRES: dPhi in (0, 1) and dMaxChi, the largest chi that is shown, above the critical one and up to
/// 1000; 0 stands for twice that (std::invalid_argument).
class CBinodalSection {
public:
    /// A run of states of two phases, the second being the denser (sigma > 0).
    /// A non-physical arc that leaves the range of chi ends with its last state within.
    struct CArc {
        std::vector<CCoexistence> states;
        bool bPhysical;
    };

    /// The progress is asked in hundredths of the work; when it aborts, the section is not complete.
    CBinodalSection(CSample sample, double dPhi, double dMaxChi = 0, const CRowProgress& progress = {});

    /// The physical ones first, by ascending chi. None when the solution does not separate up to the maximum.
    const std::vector<CArc>& Arcs() const { return m_arcs; }
    /// Lines of states of three or more phases, by ascending chi; with the physical arcs they cover every chi
    /// from the cloud point to the maximum once.
    const std::vector<CPhysicalPath::CRun>& MultiphaseLines() const { return m_lines; }

    double MaxChi() const { return m_dMaxChi; }
    /// The chi up to which the section is known: the maximum, but for samples that the method cannot follow.
    double LastChi() const { return m_path.LastChi(); }
    bool IsComplete() const { return m_path.IsComplete(); }

    /// The section in the colours of PartColor. The columns are the fractions of the thinner and of the
    /// denser phase, the ordinate, the volume of the denser phase, sigma, chi. A line of three or more phases
    /// gives a part of its thinnest and densest phase, and for each phase between one with this phase in both
    /// columns, its own volume, and sigma from the thinnest to it.
    std::unique_ptr<CMultipartTable> Table(const COrdinate& ordinate = {}) const;

private:
    /// A pair of phases on the grid, and its run of the path when it is physical.
    struct CPlace {
        CCoexistence state;
        const CPhysicalPath::CRun* pRun;
    };

    const CPhysicalPath::CRun* RunOf(const CCoexistence& pair) const;
    CCoexistence PairOf(const CPhaseState& state) const;
    CCoexistence NearerEnd(const CPhysicalPath::CRun& run, const CCoexistence& pair) const;
    void AddPath();
    void AddNonPhysical();
    void AddNonPhysical(const std::vector<CPlace>& places);

    CCoexistenceFunction m_function;
    double m_dPhi;
    double m_dMaxChi;
    CPhysicalPath m_path;
    std::vector<CArc> m_arcs;
    std::vector<CPhysicalPath::CRun> m_lines;
};

} // namespace flory
