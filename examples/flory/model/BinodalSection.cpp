#include "examples/flory/model/BinodalSection.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/Functions.h"
#include "examples/flory/model/LevelContour.h"
#include "examples/flory/model/PartTable.h"
#include "examples/flory/model/Searches.h"
#include "examples/flory/model/Spinodal.h"
#include "examples/flory/model/TangentPlane.h"

namespace flory {

namespace {

/// The grid in asinh(sigma longest chain) and in the volume, which counts in ln v and ln(1 - v): a dense
/// phase can hold all long chains in a volume of exp(-sigma r).
constexpr int N_SIGMAS = 320;
constexpr int N_VOLUMES = 66;
constexpr double FIRST_REACH = 1e-6;
constexpr double VOLUME_MARGIN = 8;
/// A phase of less volume than exp of minus this is taken for one of that volume: no ratio may overflow.
constexpr double LARGEST_LOG = 580;

/// chi may exceed what a third phase allows by this much of itself: rounding.
constexpr double RIVAL_TOLERANCE = 1e-9;

double CheckedMaximum(const CSample& sample, double dMaxChi) {
    const double dCritical = CriticalPoint(sample).dChi;
    if (dMaxChi != 0 && !(dMaxChi > dCritical && dMaxChi <= 1000)) {
        throw std::invalid_argument(
            "the largest chi of a section must exceed the critical one, and 1000 not");
    }
    return dMaxChi == 0 ? 2 * dCritical : dMaxChi;
}

/// sigma times the longest chain from which on chi exceeds the maximum: chi is more than (sigma + t)/2, and
/// H(t) is a mean of H(sigma r)/r over the species.
double SigmaReach(const CSample& sample, double dMaxChi) {
    double dSigma = FIRST_REACH / sample.Longest();
    double dChi = 0;
    while (dChi < dMaxChi) {
        dSigma *= 1.2;
        const double dLeast = std::min(ExcessH(dSigma * sample.Shortest()) / sample.Shortest(),
                                       ExcessH(dSigma * sample.Longest()) / sample.Longest());
        dChi = (dSigma + InverseExcessH(dLeast)) / 2;
    }
    return dSigma * sample.Longest();
}

} // namespace

CBinodalSection::CBinodalSection(CSample sample, double dPhi, double dMaxChi)
    : m_function(std::move(sample)), m_dPhi(dPhi), m_dMaxChi(CheckedMaximum(m_function.Sample(), dMaxChi)),
      m_dReach(SigmaReach(m_function.Sample(), m_dMaxChi)), m_threePhases(m_function.Sample(), dPhi) {
    if (!(dPhi > 0 && dPhi < 1)) {
        throw std::invalid_argument("a polymer fraction must lie between 0 and 1");
    }
    const double dLog = std::log(dPhi);
    const CLevelContour contour(N_SIGMAS, N_VOLUMES,
                                [&](double x, double y) { return std::log(StateAt(x, y).dPhi) - dLog; });
    for (const auto& line : contour.Lines()) {
        std::vector<CPlace> places;
        for (const auto& [x, y] : line) {
            if (StateAt(x, y).dChi <= m_dMaxChi) {
                places.push_back(PlaceAt(x, y));
            } else if (!places.empty()) {
                AddLine(std::exchange(places, {}));
            }
        }
        if (!places.empty()) {
            AddLine(places);
        }
    }
}

CCoexistence CBinodalSection::StateAt(double x, double y) const {
    const double dReach = std::max(FIRST_REACH, std::sinh(std::asinh(m_dReach) * x / (N_SIGMAS - 1)));
    const double dEnd = std::min(dReach + VOLUME_MARGIN, LARGEST_LOG);
    const double dBorder = 1 / (1 + std::exp(dEnd));
    const double dFromEnd = std::min(y, N_VOLUMES - 1 - y);
    double dLess = dFromEnd * dBorder; // of v and 1 - v
    if (dFromEnd >= 1) {
        dLess = 1 / (1 + std::exp(dEnd * (1 - 2 * (dFromEnd - 1) / (N_VOLUMES - 3))));
    }
    if (dReach > LARGEST_LOG) {
        dLess = std::max(dLess, dBorder);
    }
    const double dSigma = dReach / m_function.Sample().Longest();
    return 2 * y < N_VOLUMES - 1 ? m_function.At(dSigma, dLess, 1 - dLess)
                                 : m_function.At(dSigma, 1 - dLess, dLess);
}

double CBinodalSection::Rival(const CCoexistence& pair) const {
    const CSample& sample = m_function.Sample();
    if (pair.dSecond > 1 - 1e-12) {
        return 0; // nothing is denser, and nothing between can be told apart
    }
    std::vector<double> amounts;
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        amounts.push_back(sample.Weight(i) /
                          (pair.dVolume + (1 - pair.dVolume) * std::exp(-pair.dSigma * sample.Length(i))));
    }
    const CTangentPlane plane(CSample(sample.Lengths(), amounts), pair.dSecond);
    const CTangentPlane::CMinimum least = plane.Minimum();
    return least.dX < pair.dChi * (1 - RIVAL_TOLERANCE) ? least.dS : 0;
}

CBinodalSection::CPlace CBinodalSection::PlaceAt(double x, double y) const {
    const CCoexistence state = StateAt(x, y);
    return {x, y, state, Rival(state)};
}

void CBinodalSection::AddLine(const std::vector<CPlace>& places) {
    m_arcs.push_back({{places.front().state}, places.front().dRival == 0});
    for (std::size_t i = 1; i < places.size(); ++i) {
        if ((places[i].dRival == 0) != (places[i - 1].dRival == 0)) {
            AddBorder(places[i - 1], places[i]);
        }
        m_arcs.back().states.push_back(places[i].state);
    }
}

/// Begins the next arc between two places of which one is physical.
void CBinodalSection::AddBorder(CPlace last, CPlace next) {
    CArc arc{{}, next.dRival == 0};
    const CPlace& undercut = arc.bPhysical ? last : next;
    const auto onset = m_threePhases.Onset(undercut.state, undercut.dRival);
    if (onset) {
        AddThreePhases(*onset);
    } else {
        Approach(last, next);
    }
    const CCoexistence border = onset ? onset->pair : (arc.bPhysical ? next : last).state;
    m_arcs.back().states.push_back(border);
    arc.states.push_back(border);
    m_arcs.push_back(std::move(arc));
}

/// Halves the way between a physical place and another as long as it can be followed. Needed where no third
/// phase appears but two phases become one: there is no onset to solve for.
void CBinodalSection::Approach(CPlace& last, CPlace& next) const {
    constexpr int N_STEPS = 30;
    for (int i = 0; i < N_STEPS; ++i) {
        const double x = (last.x + next.x) / 2;
        const double dLow = std::max(0., std::min(last.y, next.y) - 0.2);
        const double dHigh = std::min<double>(N_VOLUMES - 1, std::max(last.y, next.y) + 0.2);
        const auto distance = [&](double y) { return std::log(StateAt(x, y).dPhi / m_dPhi); };
        const double y = FindZero(distance, dLow, dHigh);
        if (std::abs(distance(y)) > 1e-10) {
            return;
        }
        const CPlace middle = PlaceAt(x, y);
        ((middle.dRival == 0) == (last.dRival == 0) ? last : next) = middle;
    }
}

void CBinodalSection::AddThreePhases(const CThreePhaseLine::COnset& onset) {
    const auto same = [](const CThreePhases& a, const CThreePhases& b) {
        return std::abs(a.dChi - b.dChi) < 1e-7 * a.dChi &&
               std::abs(a.dPhis[1] - b.dPhis[1]) < 1e-5 * a.dPhis[1];
    };
    const auto reaches = [&](const auto& line) { return same(line.back(), onset.phases); };
    if (std::any_of(m_lines.begin(), m_lines.end(), reaches)) {
        return;
    }
    auto line = m_threePhases.Trace(onset);
    // A line that could not be followed from its other end is followed from this one.
    std::erase_if(m_lines, [&](const auto& other) { return same(other.front(), line.back()); });
    m_lines.push_back(std::move(line));
}

std::unique_ptr<CMultipartTable> CBinodalSection::Table(const COrdinate& ordinate) const {
    CPartTable table(6);
    for (const CArc& arc : m_arcs) {
        table.BeginPart(arc.bPhysical ? PHYSICAL : NON_PHYSICAL);
        for (const CCoexistence& c : arc.states) {
            table.AddRow({c.dFirst, c.dSecond, OrdinateOf(ordinate, c.dChi), c.dVolume, c.dSigma, c.dChi});
        }
    }
    for (const auto& line : m_lines) {
        table.BeginPart(PHYSICAL);
        for (const CThreePhases& s : line) {
            table.AddRow(
                {s.dPhis[0], s.dPhis[2], OrdinateOf(ordinate, s.dChi), s.dVolumes[2], -s.dSigmas[0], s.dChi});
        }
        table.BeginPart(PHYSICAL);
        for (const CThreePhases& s : line) {
            table.AddRow({s.dPhis[1], s.dPhis[1], OrdinateOf(ordinate, s.dChi), s.dVolumes[1],
                          s.dSigmas[1] - s.dSigmas[0], s.dChi});
        }
    }
    return table.Make();
}

} // namespace flory
