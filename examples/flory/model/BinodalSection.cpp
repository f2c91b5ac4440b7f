#include "examples/flory/model/BinodalSection.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/LevelContour.h"
#include "examples/flory/model/PairGrid.h"
#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Spinodal.h"

namespace flory {

namespace {

double CheckedMaximum(const CSample& sample, double dMaxChi) {
    const double dCritical = CriticalPoint(sample).dChi;
    if (dMaxChi != 0 && !(dMaxChi > dCritical && dMaxChi <= 1000)) {
        throw std::invalid_argument(
            "the largest chi of a section must exceed the critical one, and 1000 not");
    }
    return dMaxChi == 0 ? 2 * dCritical : dMaxChi;
}

double CheckedFraction(double dPhi) {
    if (!(dPhi > 0 && dPhi < 1)) {
        throw std::invalid_argument("a polymer fraction must lie between 0 and 1");
    }
    return dPhi;
}

} // namespace

CBinodalSection::CBinodalSection(CSample sample, double dPhi, double dMaxChi, const CRowProgress& progress)
    : m_function(std::move(sample)), m_dPhi(CheckedFraction(dPhi)),
      m_dMaxChi(CheckedMaximum(m_function.Sample(), dMaxChi)),
      m_path(m_function.Sample(), dPhi, m_dMaxChi, progress) {
    AddPath();
    if (m_path.IsComplete() || !progress || progress(99, 100)) {
        AddNonPhysical();
    }
}

void CBinodalSection::AddPath() {
    for (const CPhysicalPath::CRun& run : m_path.Runs()) {
        if (run.front().Phases() > 2) {
            m_lines.push_back(run);
            continue;
        }
        CArc arc{{}, true};
        for (const CPhaseState& state : run) {
            arc.states.push_back(PairOf(state));
        }
        m_arcs.push_back(std::move(arc));
    }
}

CCoexistence CBinodalSection::PairOf(const CPhaseState& state) const {
    return {-state.sigmas[0], state.volumes[1], m_dPhi,
            state.phis[0],    state.phis[1],    std::log(state.solvents[0] / state.solvents[1]),
            state.dChi};
}

void CBinodalSection::AddNonPhysical() {
    CPairGrid grid(m_function, m_dMaxChi);
    const CLevelContour contour(CPairGrid::COLUMNS, CPairGrid::ROWS,
                                [&](double x, double y) { return grid.Excess(x, y, m_dPhi); });
    for (const auto& line : contour.Lines()) {
        std::vector<CPlace> places;
        for (const auto& [x, y] : line) {
            const CCoexistence state = grid.At(x, y);
            if (state.dChi <= m_dMaxChi) {
                places.push_back({state, RunOf(state)});
            } else {
                AddNonPhysical(std::exchange(places, {}));
            }
        }
        AddNonPhysical(places);
    }
}

/// The run of the path on which a pair of phases lies; none when it is non-physical.
const CPhysicalPath::CRun* CBinodalSection::RunOf(const CCoexistence& pair) const {
    constexpr double ROUNDING = 1e-9; ///< of chi, at the ends of runs
    // Other pairs at the same chi are farther away, or so near that no picture tells them apart.
    constexpr double MARGIN = 1e-3; ///< of fractions
    for (const CPhysicalPath::CRun& run : m_path.Runs()) {
        if (run.front().Phases() > 2 || pair.dChi < run.front().dChi * (1 - ROUNDING) ||
            pair.dChi > run.back().dChi * (1 + ROUNDING)) {
            continue;
        }
        const auto next = std::partition_point(
            run.begin() + 1, run.end() - 1, [&](const CPhaseState& state) { return state.dChi < pair.dChi; });
        const auto between = [&](std::size_t k, double dPhi) {
            const double dFirst = (next - 1)->phis[k], dLast = next->phis[k];
            return std::abs(dPhi - (dFirst + dLast) / 2) <= std::abs(dLast - dFirst) + MARGIN;
        };
        if (between(0, pair.dFirst) && between(1, pair.dSecond)) {
            return &run;
        }
    }
    return nullptr;
}

CCoexistence CBinodalSection::NearerEnd(const CPhysicalPath::CRun& run, const CCoexistence& pair) const {
    const auto distance = [&](const CPhaseState& end) {
        return std::hypot(end.phis[0] - pair.dFirst, end.phis[1] - pair.dSecond, end.dChi - pair.dChi);
    };
    return PairOf(distance(run.front()) < distance(run.back()) ? run.front() : run.back());
}

/// Adds the pieces of a line that are not physical, each with the ends of the physical ones beside it.
void CBinodalSection::AddNonPhysical(const std::vector<CPlace>& places) {
    CArc arc{{}, false};
    for (std::size_t i = 0; i < places.size(); ++i) {
        const CPlace& place = places[i];
        if (!place.pRun && i > 0 && places[i - 1].pRun) {
            arc.states.push_back(NearerEnd(*places[i - 1].pRun, place.state));
        }
        if (!place.pRun) {
            arc.states.push_back(place.state);
        } else if (!arc.states.empty()) {
            arc.states.push_back(NearerEnd(*place.pRun, places[i - 1].state));
            m_arcs.push_back(std::exchange(arc, {{}, false}));
        }
    }
    if (!arc.states.empty()) {
        m_arcs.push_back(std::move(arc));
    }
}

std::unique_ptr<CMultipartTable> CBinodalSection::Table(const COrdinate& ordinate) const {
    CPartTable table(6);
    for (const CArc& arc : m_arcs) {
        table.BeginPart(arc.bPhysical ? PHYSICAL : NON_PHYSICAL);
        for (const CCoexistence& c : arc.states) {
            table.AddRow({c.dFirst, c.dSecond, OrdinateOf(ordinate, c.dChi), c.dVolume, c.dSigma, c.dChi});
        }
    }
    for (const CPhysicalPath::CRun& line : m_lines) {
        const std::size_t nLast = line.front().Phases() - 1;
        for (std::size_t k = nLast; k > 0; --k) {
            table.BeginPart(PHYSICAL);
            for (const CPhaseState& s : line) {
                table.AddRow({s.phis[k < nLast ? k : 0], s.phis[k], OrdinateOf(ordinate, s.dChi),
                              s.volumes[k], s.sigmas[k] - s.sigmas[0], s.dChi});
            }
        }
    }
    return table.Make();
}

} // namespace flory
