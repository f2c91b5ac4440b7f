#include "examples/flory/model/PhaseScan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "examples/flory/model/Functions.h"
#include "examples/flory/model/Searches.h"

namespace flory {

namespace {

/// E where a phase would hold more than the whole volume; searches for a zero need a number.
constexpr double LARGE = 1e6;

/// ln of how much r_w times the fraction changes in a step.
constexpr double STEP = 0.25;
/// 2 chi times the solvent at the right end of the search is this at least, and 1 at most.
constexpr double LEAST_ROOM = 0.5;
/// A phase at which E rises more slowly than this is nearly critical, and others may be close to it.
constexpr double NEARLY_CRITICAL = 0.3;
constexpr double LEAST_SLOPE = 1e-11;
/// chi may exceed what a further phase allows by this much of itself: rounding.
constexpr double TOLERANCE = 1e-11;
/// Two phases are one when sigma times the longest chain differs by less than this between them.
constexpr double SAME = 1e-7;

} // namespace

CPhaseScan::CPhaseScan(const CSample& sample, const CVector& densest, const CPhaseState& state)
    : m_sample(sample), m_state(state) {
    for (const double dSigma : state.sigmas) {
        CVector phase = densest;
        for (std::size_t i = 0; i < phase.size(); ++i) {
            phase[i] *= std::exp(dSigma * sample.Length(i));
        }
        m_phases.push_back(std::move(phase));
    }
}

std::size_t CPhaseScan::Nearest(double s) const {
    std::size_t nNearest = 0;
    for (std::size_t k = 1; k < m_phases.size(); ++k) {
        nNearest = std::abs(s - m_state.sigmas[k]) < std::abs(s - m_state.sigmas[nNearest]) ? k : nNearest;
    }
    return nNearest;
}

CPhaseScan::CPoint CPhaseScan::At(double s) const {
    const std::size_t nNearest = Nearest(s);
    const CVector& phase = m_phases[nNearest];
    const double dFrom = s - m_state.sigmas[nNearest];
    double dMore = 0, dFirst = 0, dSecond = 0, dPhi = 0;
    for (std::size_t i = 0; i < phase.size(); ++i) {
        const double r = m_sample.Length(i);
        if (phase[i] > 0) {
            const double dE = std::expm1(dFrom * r), dSpecies = phase[i] * (dE + 1);
            dMore += phase[i] * dE;
            dPhi += dSpecies;
            dFirst += dSpecies * r;
            dSecond += dSpecies * r * r;
        }
    }
    const double dSolvent = m_state.solvents[nNearest] - dMore;
    const double dE = dSolvent > 0
                          ? dFrom - std::log1p(-dMore / m_state.solvents[nNearest]) - 2 * m_state.dChi * dMore
                          : LARGE;
    return {s,
            dE,
            dSolvent,
            1 + dFirst * (1 / dSolvent - 2 * m_state.dChi),
            dSecond / dFirst,
            2 * m_state.dChi * m_sample.Longest() * dPhi};
}

double CPhaseScan::X(double s) const {
    const std::size_t nNearest = Nearest(s);
    const CVector& phase = m_phases[nNearest];
    const double dFrom = s - m_state.sigmas[nNearest], dSolvent = m_state.solvents[nNearest];
    double dMore = 0, dGain = 0;
    for (std::size_t i = 0; i < phase.size(); ++i) {
        const double r = m_sample.Length(i);
        if (phase[i] > 0) {
            dMore += phase[i] * std::expm1(dFrom * r);
            dGain += phase[i] / r * StretchExcess(dFrom * r);
        }
    }
    return (dGain + dSolvent * MixingExcess(dMore / dSolvent)) / (dMore * dMore);
}

double CPhaseScan::RightEnd() const {
    const auto room = [&](double s) { return At(s).dSolvent * 2 * m_state.dChi; };
    double dLow = 0, dHigh = 1 / m_sample.Longest();
    while (room(dHigh) > 1) {
        dLow = dHigh, dHigh *= 2;
    }
    for (double dWidth = dHigh; room(dLow) < LEAST_ROOM; dWidth *= 2) {
        dHigh = dLow, dLow -= dWidth;
    }
    double s = dLow;
    for (double dRoom = room(s); dRoom > 1 || dRoom < LEAST_ROOM; dRoom = room(s)) {
        (dRoom > 1 ? dLow : dHigh) = s;
        s = dLow + (dHigh - dLow) / 2;
        if (s == dLow || s == dHigh) {
            break;
        }
    }
    return s;
}

std::vector<CPhaseScan::CPoint> CPhaseScan::Grid() const {
    std::vector<CPoint> grid{At(RightEnd())};
    while (grid.back().dReach > 1) {
        grid.push_back(At(grid.back().s - STEP / grid.back().dLength));
    }
    const double dFrom = grid.back().s, dTo = grid.front().s;
    for (const double dSigma : m_state.sigmas) {
        const CPoint known = At(dSigma);
        if (dFrom < dSigma && dSigma < dTo && known.dSlope < NEARLY_CRITICAL) {
            // Another phase may be as near as the root of the slope: the closer, the finer.
            const double dLeast = std::sqrt(std::max(known.dSlope, LEAST_SLOPE)) / 8;
            for (double d = 1; d > dLeast; d /= 2) {
                grid.push_back(At(std::max(dFrom, dSigma - d * STEP / known.dLength)));
                grid.push_back(At(std::min(dTo, dSigma + d * STEP / known.dLength)));
            }
        }
    }
    std::sort(grid.begin(), grid.end(), [](const CPoint& a, const CPoint& b) { return a.s < b.s; });
    return grid;
}

std::vector<double> CPhaseScan::Minima() const {
    const std::vector<CPoint> grid = Grid();
    const auto value = [&](double s) { return E(s); };
    const auto slope = [&](double s) { return At(s).dSlope; };
    std::vector<double> minima;
    if (grid.front().dE > 0) {
        double dStep = 1 / m_sample.Longest();
        while (E(grid.front().s - dStep) > 0) {
            dStep *= 2;
        }
        minima.push_back(FindZero(value, grid.front().s - dStep, grid.front().s));
    }
    for (std::size_t i = 1; i < grid.size(); ++i) {
        const CPoint &a = grid[i - 1], &b = grid[i];
        if (a.dE < 0 && b.dE >= 0 && !HoldsKnown(a.s, b.s)) {
            minima.push_back(FindZero(value, a.s, b.s));
        } else if ((a.dE < 0) == (b.dE < 0) && (a.dSlope < 0) != (b.dSlope < 0) &&
                   (a.dSlope < 0) == (a.dE > 0)) {
            // It turns back between the two, perhaps only beyond zero.
            const double dTurn = FindZero(slope, a.s, b.s);
            if ((E(dTurn) < 0) != (a.dE < 0)) {
                minima.push_back(a.dE < 0 ? FindZero(value, a.s, dTurn) : FindZero(value, dTurn, b.s));
            }
        }
    }
    if (grid.back().dE < 0) {
        double dStep = 1 / m_sample.Longest();
        while (E(grid.back().s + dStep) < 0) {
            dStep *= 2;
        }
        minima.push_back(FindZero(value, grid.back().s, grid.back().s + dStep));
    }
    return minima;
}

/// Whether the one minimum between two places is a phase of the state.
bool CPhaseScan::HoldsKnown(double dFrom, double dTo) const {
    return std::any_of(m_state.sigmas.begin(), m_state.sigmas.end(), [&](double dSigma) {
        return dFrom < dSigma && dSigma < dTo && At(dSigma).dSlope > 0;
    });
}

bool CPhaseScan::IsKnown(double s) const {
    return std::any_of(m_state.sigmas.begin(), m_state.sigmas.end(),
                       [&](double dSigma) { return std::abs(s - dSigma) * m_sample.Longest() < SAME; });
}

std::optional<double> CPhaseScan::Rival() const {
    std::vector<double> minima = Minima();
    std::erase_if(minima, [&](double s) { return IsKnown(s); });
    std::optional<double> rival;
    double dLeast = m_state.dChi * (1 - TOLERANCE);
    for (const double s : minima) {
        const double dX = X(s);
        if (dX < dLeast) {
            dLeast = dX, rival = s;
        }
    }
    return rival;
}

} // namespace flory
