#include "examples/flory/model/ThreePhases.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include "examples/flory/model/PhasePair.h"

namespace flory {

namespace {

constexpr std::size_t N = 5;
constexpr std::size_t FIRST_VOLUME = 2;
using CVector = std::array<double, N>;

constexpr CVector Unit(std::size_t n) {
    CVector row{};
    row[n] = 1;
    return row;
}

double Product(const CVector& a, const CVector& b) {
    double dSum = 0;
    for (std::size_t i = 0; i < N; ++i) {
        dSum += a[i] * b[i];
    }
    return dSum;
}

/// Solves matrix x = right by elimination with pivots; nothing when the matrix is singular.
std::optional<CVector> Solve(std::array<CVector, N> matrix, CVector right) {
    for (std::size_t i = 0; i < N; ++i) {
        std::size_t nPivot = i;
        for (std::size_t j = i; j < N; ++j) {
            nPivot = std::abs(matrix[j][i]) > std::abs(matrix[nPivot][i]) ? j : nPivot;
        }
        std::swap(matrix[i], matrix[nPivot]);
        std::swap(right[i], right[nPivot]);
        if (!(std::abs(matrix[i][i]) > 0)) {
            return std::nullopt;
        }
        for (std::size_t j = i + 1; j < N; ++j) {
            const double dFactor = matrix[j][i] / matrix[i][i];
            for (std::size_t k = i; k < N; ++k) {
                matrix[j][k] -= dFactor * matrix[i][k];
            }
            right[j] -= dFactor * right[i];
        }
    }
    for (std::size_t i = N; i-- > 0;) {
        for (std::size_t k = i + 1; k < N; ++k) {
            right[i] -= matrix[i][k] * right[k];
        }
        right[i] /= matrix[i][i];
    }
    return right;
}

} // namespace

CThreePhaseLine::CThreePhaseLine(const CSample& sample, double dPhi) : m_sample(sample), m_dPhi(dPhi) {}

namespace {

std::vector<double> Amounts(const CSample& sample, const CVector& p) {
    std::vector<double> amounts(sample.Species());
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        const double r = sample.Length(i);
        amounts[i] = sample.Weight(i) /
                     (p[4] + p[2] * std::exp(-std::exp(p[0]) * r) + p[3] * std::exp(-std::exp(p[1]) * r));
    }
    return amounts;
}

} // namespace

CVector CThreePhaseLine::Residuals(const CVector& p) const {
    const std::vector<double> amounts = Amounts(m_sample, p);
    const CPhasePair first = PhasePair(m_sample, amounts, -std::exp(p[0]));
    const CPhasePair second = PhasePair(m_sample, amounts, -std::exp(p[1]));
    return {std::log(first.dPhi / m_dPhi), std::log(second.dPhi / m_dPhi), first.dChi / second.dChi - 1,
            p[2] + p[3] + p[4] - 1, 0};
}

/// Steps for difference quotients. A volume counts on the scale on which it changes the amount of a species,
/// which is far below 1 for a dense phase that holds all of the longest chains.
CVector CThreePhaseLine::Steps(const CVector& p) const {
    CVector steps{1e-6, 1e-6, 1e-6, 1e-6, 1e-6};
    const std::vector<double> amounts = Amounts(m_sample, p);
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        for (std::size_t k = 0; k < 3 && m_sample.Weight(i) > 0; ++k) {
            const double dSigma = k < 2 ? -std::exp(p[k]) : 0;
            const double dScale = m_sample.Weight(i) / amounts[i] * std::exp(-dSigma * m_sample.Length(i));
            steps[FIRST_VOLUME + k] = std::min(steps[FIRST_VOLUME + k], 1e-6 * dScale);
        }
    }
    return steps;
}

std::array<CVector, N> CThreePhaseLine::Jacobian(const CVector& p, const CVector& row) const {
    const CVector steps = Steps(p);
    std::array<CVector, N> matrix{};
    for (std::size_t k = 0; k < N; ++k) {
        CVector up = p, down = p;
        up[k] += steps[k];
        down[k] -= steps[k];
        const CVector high = Residuals(up), low = Residuals(down);
        for (std::size_t i = 0; i + 1 < N; ++i) {
            matrix[i][k] = (high[i] - low[i]) / (up[k] - down[k]);
        }
    }
    matrix[N - 1] = row;
    return matrix;
}

bool CThreePhaseLine::Correct(CVector& p, const CVector& row, double dTarget) const {
    constexpr int N_TRIES = 25;
    for (int i = 0; i < N_TRIES; ++i) {
        CVector right = Residuals(p);
        right[N - 1] = Product(row, p) - dTarget;
        const auto step = Solve(Jacobian(p, row), right);
        double dSize = 0;
        for (std::size_t k = 0; step && k < N; ++k) {
            p[k] -= (*step)[k];
            dSize = std::max(dSize, std::abs((*step)[k]));
        }
        if (!step || !std::isfinite(Product(p, p)) || !(dSize < 3)) {
            return false;
        }
        if (dSize < 1e-11) {
            return true;
        }
    }
    return false;
}

std::optional<CVector> CThreePhaseLine::Tangent(const CVector& p, const CVector& row) const {
    auto tangent = Solve(Jacobian(p, row), Unit(N - 1));
    if (tangent) {
        const double dLength = std::sqrt(Product(*tangent, *tangent));
        for (double& d : *tangent) {
            d /= dLength;
        }
    }
    return tangent;
}

CThreePhases CThreePhaseLine::State(const CVector& p) const {
    const std::vector<double> amounts = Amounts(m_sample, p);
    const CPhasePair first = PhasePair(m_sample, amounts, -std::exp(p[0]));
    const CPhasePair second = PhasePair(m_sample, amounts, -std::exp(p[1]));
    const std::size_t nThin = first.dThin <= second.dThin ? 0 : 1;
    const CPhasePair& thin = nThin == 0 ? first : second;
    const CPhasePair& middle = nThin == 0 ? second : first;
    return {{-std::exp(p[nThin]), -std::exp(p[1 - nThin]), 0},
            {p[2 + nThin], p[3 - nThin], p[4]},
            {thin.dThin, middle.dThin, first.dDense},
            (first.dChi + second.dChi) / 2};
}

std::optional<CThreePhaseLine::COnset> CThreePhaseLine::Onset(const CCoexistence& pair, double s) const {
    const bool bDensest = s > 0;
    const std::size_t nNew = bDensest ? 4 : 3;
    CVector p{std::log(pair.dSigma + (bDensest ? s : 0)), std::log(std::abs(s)), 1 - pair.dVolume,
              bDensest ? pair.dVolume : 0, bDensest ? 0 : pair.dVolume};
    if (!Correct(p, Unit(nNew), 0) || std::min({p[2], p[3], p[4]}) < -1e-9) {
        return std::nullopt;
    }
    p[nNew] = 0;
    const CThreePhases state = State(p);
    const auto nPhase = static_cast<int>(std::find(state.dVolumes.begin(), state.dVolumes.end(), 0.) -
                                         state.dVolumes.begin());
    const std::size_t nThin = nPhase == 0 ? 1 : 0, nDense = nPhase == 2 ? 1 : 2;
    const double dSigma = state.dSigmas[nDense] - state.dSigmas[nThin];
    const double dLog = std::log((1 - state.dPhis[nThin]) / (1 - state.dPhis[nDense]));
    return COnset{
        {dSigma, state.dVolumes[nDense], m_dPhi, state.dPhis[nThin], state.dPhis[nDense], dLog, state.dChi},
        state,
        nPhase};
}

std::vector<CThreePhases> CThreePhaseLine::Trace(const COnset& onset) const {
    const CThreePhases& start = onset.phases;
    CVector p{std::log(-start.dSigmas[0]), std::log(-start.dSigmas[1]), start.dVolumes[0], start.dVolumes[1],
              start.dVolumes[2]};
    std::vector<CThreePhases> states{start};
    auto tangent = Tangent(p, Unit(FIRST_VOLUME + static_cast<std::size_t>(onset.nNew)));
    double dStep = 1e-3;
    while (tangent && dStep > 1e-10 && states.size() < N_STATES) {
        CVector next = p;
        for (std::size_t i = 0; i < N; ++i) {
            next[i] += dStep * (*tangent)[i];
        }
        if (!Correct(next, *tangent, Product(*tangent, next))) {
            dStep /= 4;
            continue;
        }
        const auto nLeast =
            static_cast<std::size_t>(std::min_element(next.begin() + 2, next.end()) - next.begin());
        if (next[nLeast] <= 0) {
            if (Correct(next, Unit(nLeast), 0)) {
                next[nLeast] = 0;
                states.push_back(State(next));
                break;
            }
            dStep /= 4;
            continue;
        }
        p = next;
        states.push_back(State(p));
        tangent = Tangent(p, *tangent);
        dStep = std::min(1.5 * dStep, 0.02);
    }
    return states;
}

} // namespace flory
