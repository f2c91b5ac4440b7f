#include "examples/flory/model/MultiplePoints.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/Searches.h"
#include "examples/flory/model/TangentPlane.h"

namespace flory {

namespace {

/// Below this |s| times the longest chain a minimum of X is the critical phase itself.
constexpr double SELF_REACH = 2e-3;
constexpr int N_COARSE = 280; ///< samples of a line whose tangent planes are tested
constexpr int N_FINE = 4000;  ///< samples whose local stability is

/// The fourth and fifth derivatives of the free energy at the critical point, up to factors; negative where
/// it is unstable. r_z and its kin are divided by the longest chain, so that chains of any length are alike.
std::array<double, 2> HigherDerivatives(const CSample& sample) {
    const double dLongest = sample.Longest();
    std::array<double, 5> m{};
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        double dTerm = sample.Weight(i);
        for (double& dMoment : m) {
            dMoment += dTerm;
            dTerm *= sample.Length(i) / dLongest;
        }
    }
    const double z = m[2] / m[1], z1 = m[3] / m[2], z2 = m[4] / m[3];
    const double dRoot = std::sqrt(z / dLongest);
    return {3 * z + 2 * dRoot - z1, (z1 - z) * (3 * z + dRoot) - z1 * (z2 - z1)};
}

/// The stationary minimum of X that is lowest among those of other phases.
std::optional<CTangentPlane::CMinimum> LowestOther(const CTangentPlane& plane, const CSample& sample) {
    std::optional<CTangentPlane::CMinimum> lowest;
    for (const CTangentPlane::CMinimum& minimum : plane.Minima()) {
        const bool bOther = std::abs(minimum.dS) * sample.Longest() > SELF_REACH;
        if (bOther && (!lowest || minimum.dX < lowest->dX)) {
            lowest = minimum;
        }
    }
    return lowest;
}

bool IsStable(const CSample& sample) {
    const auto margin = CriticalMargin(sample);
    return HigherDerivatives(sample)[0] >= 0 && (!margin || *margin >= 0);
}

/// The values of t at which stability is looked at: a grid, and where the critical point is least stable
/// locally.
std::vector<double> Places(const CSampleLine& line, double dFirst, double dLast) {
    std::vector<double> places;
    for (int i = 0; i <= N_COARSE; ++i) {
        places.push_back(dFirst + (dLast - dFirst) * i / N_COARSE);
    }
    const auto fourth = [&](double t) { return HigherDerivatives(line(t))[0]; };
    const double dStep = (dLast - dFirst) / N_FINE;
    for (int i = 1; i < N_FINE; ++i) {
        const double t = dFirst + i * dStep;
        if (fourth(t) <= fourth(t - dStep) && fourth(t) < fourth(t + dStep)) {
            places.push_back(FindMinimum(fourth, t - dStep, t + dStep));
        }
    }
    std::sort(places.begin(), places.end());
    return places;
}

CCriticalEndPoint EndPointAt(const CSample& sample) {
    const CCriticalPoint critical = CriticalPoint(sample);
    const CTangentPlane plane(sample, critical.dPhi);
    const auto other = LowestOther(plane, sample);
    const double dNear = other ? other->dS : 0;
    const double s = FindZero([&](double d) { return plane.Slope(d); }, 0.99 * dNear, 1.01 * dNear);
    double dOther = 0;
    for (std::size_t i = 0; i < sample.Species(); ++i) {
        dOther += critical.dPhi * sample.Weight(i) * std::exp(s * sample.Length(i));
    }
    return {sample, critical, s, dOther};
}

/// Newton's method for two equations of two logarithms of weights or lengths; nothing when it does not
/// settle.
template <class SAMPLE>
std::optional<std::array<double, 2>> SolveTricritical(const SAMPLE& sampleOf, std::array<double, 2> p) {
    constexpr int N_STEPS = 60;
    constexpr double SHIFT = 1e-6, LARGEST_STEP = 0.5, SETTLED = 1e-12;
    const auto residuals = [&](double p0, double p1) { return HigherDerivatives(sampleOf(p0, p1)); };
    for (int i = 0; i < N_STEPS; ++i) {
        const auto r = residuals(p[0], p[1]);
        std::array<std::array<double, 2>, 2> slopes;
        for (std::size_t n = 0; n < 2; ++n) {
            const double d0 = n == 0 ? SHIFT : 0, d1 = n == 1 ? SHIFT : 0;
            const auto high = residuals(p[0] + d0, p[1] + d1), low = residuals(p[0] - d0, p[1] - d1);
            slopes[n] = {(high[0] - low[0]) / (2 * SHIFT), (high[1] - low[1]) / (2 * SHIFT)};
        }
        const double dDeterminant = slopes[0][0] * slopes[1][1] - slopes[1][0] * slopes[0][1];
        const double d0 = (slopes[1][0] * r[1] - slopes[1][1] * r[0]) / dDeterminant;
        const double d1 = (slopes[0][1] * r[0] - slopes[0][0] * r[1]) / dDeterminant;
        if (!std::isfinite(d0) || !std::isfinite(d1)) {
            return std::nullopt;
        }
        const double dScale = std::min(1., LARGEST_STEP / std::max(std::abs(d0), std::abs(d1)));
        p[0] += dScale * d0;
        p[1] += dScale * d1;
        if (std::max(std::abs(d0), std::abs(d1)) < SETTLED) {
            return p;
        }
    }
    return std::nullopt;
}

/// Whether both derivatives change their sign over a square of logarithms.
template <class SAMPLE>
bool MayVanish(const SAMPLE& sampleOf, std::array<double, 2> corner, double dSide) {
    constexpr int N_CORNERS = 4;
    int nPositive[2] = {0, 0};
    for (int i = 0; i < N_CORNERS; ++i) {
        const auto r = HigherDerivatives(sampleOf(corner[0] + i / 2 * dSide, corner[1] + i % 2 * dSide));
        nPositive[0] += r[0] > 0;
        nPositive[1] += r[1] > 0;
    }
    return nPositive[0] % N_CORNERS != 0 && nPositive[1] % N_CORNERS != 0;
}

/// Neighbouring squares may lead to the same one.
void AddSolution(std::vector<std::array<double, 2>>& solutions,
                 const std::optional<std::array<double, 2>>& solved) {
    constexpr double SAME = 1e-6;
    const auto same = [&](const std::array<double, 2>& other) {
        return std::abs(other[0] - (*solved)[0]) + std::abs(other[1] - (*solved)[1]) < SAME;
    };
    if (solved && std::none_of(solutions.begin(), solutions.end(), same)) {
        solutions.push_back(*solved);
    }
}

} // namespace

CSampleLine LineOfSamples(const std::vector<double>& lengths, std::size_t nLast, double dShare) {
    const bool bTwo = lengths.size() == 2;
    if (!bTwo && (lengths.size() != 3 || nLast > 2)) {
        throw std::invalid_argument("a line of samples is of two or three chain lengths");
    }
    if (!bTwo && !(dShare >= 0 && dShare < 1)) {
        throw std::invalid_argument("the share of a chain must be from 0 to below 1");
    }
    return [=](double t) {
        const double dRest = bTwo ? 1 : 1 - dShare;
        std::vector<double> weights = {dRest / (1 + std::exp(t)), dRest / (1 + std::exp(-t))};
        if (!bTwo) {
            weights.insert(weights.begin() + static_cast<std::ptrdiff_t>(nLast), dShare);
        }
        return CSample(lengths, weights);
    };
}

std::optional<double> CriticalMargin(const CSample& sample) {
    const CCriticalPoint critical = CriticalPoint(sample);
    const auto other = LowestOther(CTangentPlane(sample, critical.dPhi), sample);
    return other ? std::optional(other->dX / critical.dChi - 1) : std::nullopt;
}

bool IsObservable(const CTricriticalPoint& point) {
    // The point itself is as good as undercut, by rounding.
    constexpr double ROUNDING = 1e-12;
    return CriticalMargin(point.sample).value_or(0) > -ROUNDING;
}

std::vector<CCriticalEndPoint> CriticalEndPoints(const CSampleLine& line, double dFirst, double dLast) {
    constexpr int N_HALVINGS = 60;
    std::vector<CCriticalEndPoint> found;
    const std::vector<double> places = Places(line, dFirst, dLast);
    bool bStable = IsStable(line(places.front()));
    for (std::size_t i = 1; i < places.size(); ++i) {
        if (IsStable(line(places[i])) == bStable) {
            continue;
        }
        double dLow = places[i - 1], dHigh = places[i];
        for (int n = 0; n < N_HALVINGS; ++n) {
            const double dMiddle = (dLow + dHigh) / 2;
            (IsStable(line(dMiddle)) == bStable ? dLow : dHigh) = dMiddle;
        }
        found.push_back(EndPointAt(line(bStable ? dHigh : dLow)));
        bStable = !bStable;
    }
    return found;
}

CTricriticalPoint TricriticalPoint(double dShorter) {
    constexpr double SHORTEST = 0.01, LONGEST = 1e8, STEP = 0.7;
    if (!(dShorter >= SHORTEST && dShorter <= LONGEST)) {
        throw std::invalid_argument(
            "the shorter chain of a tricritical sample must lie between 0.01 and 1e8");
    }
    // From infinitely long chains, where the weights are as 1 to 1/ratio^2, down to the ones asked for.
    const double dRatio = 5 + 2 * std::sqrt(6.);
    std::array<double, 2> p = {std::log(dRatio), -2 * std::log(dRatio)};
    for (double r = std::max(1e8, dShorter);; r = std::max(STEP * r, dShorter)) {
        const auto sampleOf = [r](double dRatioLog, double dWeightLog) {
            return CSample({r, r * std::exp(dRatioLog)}, {1, std::exp(dWeightLog)});
        };
        const auto solved = SolveTricritical(sampleOf, p);
        if (!solved) {
            throw std::invalid_argument("no tricritical sample was found for this chain length");
        }
        p = *solved;
        if (r == dShorter) {
            const CSample sample = sampleOf(p[0], p[1]);
            return {sample, CriticalPoint(sample)};
        }
    }
}

std::vector<CTricriticalPoint> TricriticalPoints(const std::vector<double>& lengths) {
    if (lengths.size() != 3) {
        throw std::invalid_argument("tricritical points are looked for among samples of three chain lengths");
    }
    std::vector<double> sorted = lengths;
    std::sort(sorted.begin(), sorted.end());
    const auto sampleOf = [&](double p0, double p1) {
        return CSample(sorted, {1, std::exp(p0), std::exp(p1)});
    };
    // Beyond this reach of the weights' logarithms one species decides alone.
    const double dReach = 6 * std::log(sorted[2] / sorted[0]) + 6;
    constexpr int N_CELLS = 160;
    const double dStep = 2 * dReach / N_CELLS;
    std::vector<std::array<double, 2>> solutions;
    for (int nCell = 0; nCell < N_CELLS * N_CELLS; ++nCell) {
        const std::array<double, 2> corner = {-dReach + nCell / N_CELLS * dStep,
                                              -dReach + nCell % N_CELLS * dStep};
        if (MayVanish(sampleOf, corner, dStep)) {
            AddSolution(solutions,
                        SolveTricritical(sampleOf, {corner[0] + dStep / 2, corner[1] + dStep / 2}));
        }
    }
    std::vector<CTricriticalPoint> found;
    for (const auto& [p0, p1] : solutions) {
        found.push_back({sampleOf(p0, p1), CriticalPoint(sampleOf(p0, p1))});
    }
    return found;
}

} // namespace flory
