#include "examples/flory/model/PhysicalPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

#include "examples/flory/model/PhaseScan.h"
#include "examples/flory/model/TangentPlane.h"

namespace flory {

namespace {

/// Steps, of the length of CPlace::direction.
constexpr double FIRST_STEP = 0.01;
constexpr double LONGEST_STEP = 0.5;
constexpr double SHORTEST_STEP = 1e-10;
constexpr int MOST_STEPS = 20000;
/// What may lie between two states, so that lines between them look like curves, at the cloud point and at
/// the maximum of chi: curves bend most near the former. Of fractions, and of the range of chi.
constexpr double PHI_STEPS[] = {0.0015, 0.015};
constexpr double CHI_STEPS[] = {1. / 800, 1. / 100};
/// Below this sigma times the longest chain the phases at the cloud point are a critical one.
constexpr double CRITICAL_REACH = 1e-5;
/// Below this sigma times the shortest chain a phase is the solvent.
constexpr double SOLVENT_LOG = -30;
/// Two phases whose sigma times the longest chain is less are hardly told from the critical one.
constexpr double APART_REACH = 3e-4;
/// An event may precede the run that it ends by this much of chi, and a state the last one: rounding.
constexpr double SAME_CHI = 1e-10;
constexpr double SAME_STATE_CHI = 1e-13;
constexpr double AT_MAXIMUM = 1e-11;

bool HasNegative(const CVector& volumes) {
    return std::any_of(volumes.begin(), volumes.end(), [](double d) { return !(d >= 0); });
}

CVector Without(const CVector& p, std::size_t nPhase) {
    CVector sigmas = CPhaseEquations::Sigmas(p);
    CVector volumes(p.begin() + static_cast<std::ptrdiff_t>(CPhaseEquations::Volume(p, 0)), p.end());
    sigmas.erase(sigmas.begin() + static_cast<std::ptrdiff_t>(nPhase));
    volumes.erase(volumes.begin() + static_cast<std::ptrdiff_t>(nPhase));
    return CPhaseEquations::Unknowns(sigmas, volumes);
}

/// The phase without volume; as many as there are phases when each has some.
std::size_t Empty(const CVector& p) {
    const auto first = p.begin() + static_cast<std::ptrdiff_t>(CPhaseEquations::Volume(p, 0));
    return static_cast<std::size_t>(std::find(first, p.end(), 0.) - first);
}

} // namespace

CPhysicalPath::CPhysicalPath(const CSample& sample, double dPhi, double dMaxChi, const CRowProgress& progress)
    : m_equations(sample, dPhi), m_dPhi(dPhi), m_dMaxChi(dMaxChi) {
    if (Begin()) {
        Follow(progress);
    }
}

std::optional<double> CPhysicalPath::RivalOf(const CVector& p, const CPhaseState& state) const {
    return CPhaseScan(m_equations.Sample(), m_equations.Densest(p), state).Rival();
}

std::optional<CPhysicalPath::CPlace> CPhysicalPath::PlaceAt(const CVector& p) const {
    const CPhaseEquations::CLinear at = m_equations.At(p);
    auto direction = CPhaseEquations::Direction(at, at.logChiSlopes);
    if (!direction) {
        return std::nullopt;
    }
    CVector scales(p.size(), 1);
    double dLength = 0;
    for (std::size_t n = 0; n < p.size(); ++n) {
        for (const CVector& row : at.slopes) {
            scales[n] = std::min(scales[n], 1 / std::abs(row[n]));
        }
        dLength = std::hypot(dLength, (*direction)[n] / scales[n]);
    }
    for (double& d : *direction) {
        d /= dLength;
    }
    if (!std::isfinite(dLength)) {
        return std::nullopt;
    }
    return CPlace{p, m_equations.State(p), *direction, scales};
}

/// At the cloud point, the least chi at which another phase is on the solution's tangent plane.
bool CPhysicalPath::Begin() {
    const double dLongest = m_equations.Sample().Longest();
    const CTangentPlane::CMinimum least = CTangentPlane(m_equations.Sample(), m_dPhi).Minimum();
    m_dFirstChi = m_dLastChi = least.dX;
    if (least.dX >= m_dMaxChi) {
        m_bComplete = true;
        return false;
    }
    std::optional<double> s = least.dS;
    if (least.dS * m_equations.Sample().Shortest() < SOLVENT_LOG) {
        s = -std::log1p(-m_dPhi) - 2 * least.dX * m_dPhi; // X is flat: where E of CPhaseScan is zero
    }
    constexpr int N_TRIES = 10;
    for (int i = 0; i < N_TRIES && s; ++i) {
        auto p = WithNew({1}, *s);
        if (std::abs(*s) * dLongest < CRITICAL_REACH ||
            (p && std::exp((*p)[0]) * dLongest < CRITICAL_REACH)) {
            const double dLog = std::log(CRITICAL_REACH / dLongest);
            p = m_equations.Corrected({dLog, 0.5, 0.5}, CPhaseEquations::Fixed(0, dLog));
        }
        m_place = p ? PlaceAt(*p) : std::nullopt;
        if (!m_place || HasNegative(m_place->state.volumes)) {
            return false;
        }
        s = RivalOf(m_place->p, m_place->state);
        if (s) {
            *s -= m_place->state.sigmas[Empty(m_place->p) == 0 ? 1 : 0];
        }
    }
    m_dFirstChi = m_dLastChi = m_place->state.dChi;
    m_runs.push_back({m_place->state});
    return !s;
}

void CPhysicalPath::Follow(const CRowProgress& progress) {
    double dStep = FIRST_STEP;
    for (int i = 0; i < MOST_STEPS && !m_bComplete && dStep > SHORTEST_STEP; ++i) {
        const bool bTaken = Step(dStep);
        dStep = bTaken ? std::min(1.4 * dStep, LONGEST_STEP) : dStep / 2;
        const double dDone = (m_dLastChi - m_dFirstChi) / (m_dMaxChi - m_dFirstChi);
        if (progress && !progress(static_cast<int>(100 * dDone), 100)) {
            return;
        }
    }
}

/// Makes one step of a length, or over an event that comes before; false when nothing could be trusted.
bool CPhysicalPath::Step(double dLength) {
    const CPlace& here = *m_place;
    const auto apart = Apart(here.p);
    if (apart && Take(*apart)) {
        return true;
    }
    CVector guess = here.p;
    for (std::size_t n = 0; n < guess.size(); ++n) {
        guess[n] += dLength * here.direction[n];
    }
    auto next = m_equations.Corrected(guess, [&](const CVector& p, const CPhaseEquations::CLinear&) {
        CPhaseEquations::CEquation across{0, CVector(p.size())};
        for (std::size_t n = 0; n < p.size(); ++n) {
            across.slopes[n] = here.direction[n] / here.scales[n] / here.scales[n];
            across.dResidual += across.slopes[n] * (p[n] - guess[n]);
        }
        return across;
    });
    next = next ? WithoutUsedUp(*next) : next;
    next = next ? Ended(*next) : next;
    return next && Take(*next);
}

/// Where two phases have just parted from a critical one, and neither volumes nor chi tell how far: a place
/// at which they are farther apart. chi grows with the square of that, by nothing to speak of.
std::optional<CVector> CPhysicalPath::Apart(const CVector& p) const {
    const double dApart = std::log(APART_REACH / m_equations.Sample().Longest());
    for (std::size_t k = 0; k + 1 < CPhaseEquations::Phases(p); ++k) {
        if (p[k] < dApart) {
            CVector guess = p;
            const std::size_t nVolume = CPhaseEquations::Volume(p, k);
            guess[k] = dApart;
            guess[nVolume] = guess[nVolume + 1] = (p[nVolume] + p[nVolume + 1]) / 2;
            return m_equations.Corrected(guess, CPhaseEquations::Fixed(k, dApart));
        }
    }
    return std::nullopt;
}

/// The place at which the first phase is used up on the way to a place; this itself where none is.
std::optional<CVector> CPhysicalPath::WithoutUsedUp(const CVector& p) const {
    std::size_t nFirst = p.size();
    double dFirst = 1;
    for (std::size_t n = CPhaseEquations::Volume(p, 0); n < p.size(); ++n) {
        const double dLast = m_place->p[n];
        if (p[n] < 0 && dLast / (dLast - p[n]) <= dFirst) {
            nFirst = n, dFirst = dLast / (dLast - p[n]);
        }
    }
    if (nFirst == p.size()) {
        return p;
    }
    CVector guess = p;
    for (std::size_t n = 0; n < p.size(); ++n) {
        guess[n] = m_place->p[n] + dFirst * (p[n] - m_place->p[n]);
    }
    auto end = m_equations.Corrected(guess, CPhaseEquations::Fixed(nFirst, 0));
    if (end) {
        (*end)[nFirst] = 0;
    }
    return end;
}

/// The place at the maximum of chi where a place lies beyond it.
std::optional<CVector> CPhysicalPath::Ended(const CVector& p) const {
    const double dMaximum = std::log(m_dMaxChi);
    if (m_equations.At(p).dLogChi <= dMaximum) {
        return p;
    }
    return m_equations.Corrected(p, [&](const CVector&, const CPhaseEquations::CLinear& at) {
        return CPhaseEquations::CEquation{at.dLogChi - dMaximum, at.logChiSlopes};
    });
}

/// The place at which a further phase, with exp(s r_i) times as much as the densest, has no volume.
std::optional<CVector> CPhysicalPath::WithNew(const CVector& p, double s) const {
    CVector sigmas = CPhaseEquations::Sigmas(p);
    CVector volumes(p.begin() + static_cast<std::ptrdiff_t>(CPhaseEquations::Volume(p, 0)), p.end());
    const auto nNew = std::lower_bound(sigmas.begin(), sigmas.end(), s) - sigmas.begin();
    sigmas.insert(sigmas.begin() + nNew, s);
    volumes.insert(volumes.begin() + nNew, 0);
    const CVector guess = CPhaseEquations::Unknowns(sigmas, volumes);
    const std::size_t nVolume = CPhaseEquations::Volume(guess, static_cast<std::size_t>(nNew));
    auto onset = m_equations.Corrected(guess, CPhaseEquations::Fixed(nVolume, 0));
    if (onset) {
        (*onset)[nVolume] = 0;
    }
    return onset;
}

/// Whether a state follows the last one as closely as states of one run do.
bool CPhysicalPath::IsNear(const CPhaseState& next) const {
    const CPhaseState& last = m_place->state;
    const double dDone = (last.dChi - m_dFirstChi) / (m_dMaxChi - m_dFirstChi);
    const auto step = [&](const double(&steps)[2]) { return steps[0] + (steps[1] - steps[0]) * dDone; };
    for (std::size_t k = 0; k < next.Phases(); ++k) {
        if (!(std::abs(next.phis[k] - last.phis[k]) <= step(PHI_STEPS))) {
            return false;
        }
    }
    return next.dChi >= last.dChi * (1 - SAME_STATE_CHI) &&
           next.dChi - last.dChi <= step(CHI_STEPS) * (m_dMaxChi - m_dFirstChi);
}

/// Takes a place to the path, when it follows the last one; or the event before it.
bool CPhysicalPath::Take(const CVector& p) {
    auto next = PlaceAt(p);
    if (!next || !IsNear(next->state) || HasNegative(next->state.volumes)) {
        return false;
    }
    if (const auto rival = RivalOf(p, next->state)) {
        const auto onset = WithNew(p, *rival);
        return onset && m_equations.State(*onset).dChi <= next->state.dChi * (1 + SAME_CHI) &&
               TakeChange(Without(*onset, Empty(*onset)), *onset);
    }
    const std::size_t nUsedUp = Empty(p);
    if (nUsedUp < next->state.Phases()) {
        return TakeChange(p, Without(p, nUsedUp));
    }
    m_runs.back().push_back(next->state);
    m_dLastChi = next->state.dChi;
    m_bComplete = m_dLastChi >= m_dMaxChi * (1 - AT_MAXIMUM);
    m_place = std::move(next);
    return true;
}

/// Ends the run with one place and begins the next one with another, which is the same state.
bool CPhysicalPath::TakeChange(const CVector& last, const CVector& next) {
    const CPhaseState end = m_equations.State(last);
    auto begin = PlaceAt(next);
    const double dEarliest = m_runs.back().front().dChi * (1 - SAME_CHI);
    if (!begin || HasNegative(begin->state.volumes) || !(end.dChi >= dEarliest) ||
        RivalOf(next, begin->state)) {
        return false;
    }
    const std::size_t nNew = Empty(next);
    if (nNew < begin->state.Phases() && begin->direction[CPhaseEquations::Volume(next, nNew)] < 0) {
        return false;
    }
    CRun& run = m_runs.back();
    // What undercuts by no more than rounding may have been taken before.
    while (run.size() > 1 && run.back().dChi >= end.dChi) {
        run.pop_back();
    }
    run.push_back(end);
    m_runs.push_back({begin->state});
    m_dLastChi = begin->state.dChi;
    m_place = std::move(begin);
    return true;
}

} // namespace flory
