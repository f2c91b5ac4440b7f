#include "examples/flory/model/PhaseEquations.h"

#include <algorithm>
#include <cmath>

#include "examples/flory/model/Functions.h"
#include "examples/flory/model/PhasePair.h"

namespace flory {

CVector CPhaseEquations::Sigmas(const CVector& p) {
    CVector sigmas(Phases(p));
    for (std::size_t k = sigmas.size() - 1; k-- > 0;) {
        sigmas[k] = sigmas[k + 1] - std::exp(p[k]);
    }
    return sigmas;
}

CVector CPhaseEquations::Unknowns(const CVector& sigmas, const CVector& volumes) {
    CVector p;
    for (std::size_t k = 0; k + 1 < sigmas.size(); ++k) {
        p.push_back(std::log(sigmas[k + 1] - sigmas[k]));
    }
    p.insert(p.end(), volumes.begin(), volumes.end());
    return p;
}

/// What the pair of a phase and the next denser one adds up over the species, with the slopes of each sum.
/// In the names of PhasePair, with M the sum of (a_i/r_i) E_i H(sigma r_i).
class CPhaseEquations::CSums {
public:
    CSums(std::size_t nPair, double dSigma, std::size_t nUnknowns)
        : m_nPair(nPair), m_dSigma(dSigma), m_a0(nUnknowns), m_a1(nUnknowns), m_m(nUnknowns) {}

    /// a_i of the denser phase, and the slopes of its logarithm.
    void Add(double r, double dAmount, const CVector& slopes) {
        const double x = m_dSigma * r;
        const double dE = std::expm1(x), dH = ExcessH(x), dMean = dE * dH / r;
        m_dA0 += dAmount;
        m_dA1 += dAmount * dE;
        m_dM += dAmount * dMean;
        for (std::size_t n = 0; n < slopes.size(); ++n) {
            m_a0[n] += dAmount * slopes[n];
            m_a1[n] += dAmount * slopes[n] * dE;
            m_m[n] += dAmount * slopes[n] * dMean;
        }
        m_a1[m_nPair] += dAmount * x * (dE + 1);
        m_m[m_nPair] += dAmount * x / r * ((dE + 1) * dH + dE * ExcessHSlope(x));
    }

    struct CPair {
        double dLogPhi;
        double dLogChi;
        CVector logPhiSlopes;
        CVector logChiSlopes;
    };
    CPair Pair() const {
        const double t = -InverseExcessH(m_dM / m_dA1);
        const double dInverse = -1 / std::expm1(-t); // 1/u
        const double dWhole = m_dA0 + m_dA1 * dInverse;
        CPair pair{-std::log(dWhole), std::log((m_dSigma + t) / (2 * m_dA1) * dWhole), m_a0, m_a0};
        for (std::size_t n = 0; n < m_a0.size(); ++n) {
            const double dT = -(m_m[n] - m_dM / m_dA1 * m_a1[n]) / m_dA1 / ExcessHSlope(-t);
            const double dLogU = dT / std::expm1(t);
            const double dLogPhi = -(m_a0[n] + dInverse * (m_a1[n] - m_dA1 * dLogU)) / dWhole;
            pair.logPhiSlopes[n] = dLogPhi;
            pair.logChiSlopes[n] =
                ((n == m_nPair ? m_dSigma : 0) + dT) / (m_dSigma + t) - dLogPhi - m_a1[n] / m_dA1;
        }
        return pair;
    }

private:
    std::size_t m_nPair; ///< also the place of ln(-sigma) among the unknowns
    double m_dSigma;
    double m_dA0 = 0;
    double m_dA1 = 0;
    double m_dM = 0;
    CVector m_a0;
    CVector m_a1;
    CVector m_m;
};

std::vector<CPhaseEquations::CSums> CPhaseEquations::Sums(const CVector& p) const {
    const std::size_t nPhases = Phases(p);
    const CVector sigmas = Sigmas(p);
    std::vector<CSums> sums;
    for (std::size_t k = 0; k + 1 < nPhases; ++k) {
        sums.emplace_back(k, -std::exp(p[k]), p.size());
    }
    CVector more(nPhases), slopes(p.size());
    for (std::size_t i = 0; i < m_sample.Species(); ++i) {
        const double r = m_sample.Length(i);
        double dWhole = 0;
        for (std::size_t k = 0; k < nPhases; ++k) {
            more[k] = std::exp(sigmas[k] * r);
            dWhole += p[Volume(p, k)] * more[k];
        }
        // Of ln a_i in the densest phase; in a thinner one this is less by r_i for each unit of sigma
        // between.
        double dShare = 0;
        for (std::size_t k = 0; k < nPhases; ++k) {
            slopes[Volume(p, k)] = -more[k] / dWhole;
            dShare += p[Volume(p, k)] * more[k] / dWhole;
            if (k + 1 < nPhases) {
                slopes[k] = std::exp(p[k]) * r * dShare;
            }
        }
        for (std::size_t k = nPhases - 1; k-- > 0;) {
            sums[k].Add(r, m_sample.Weight(i) * more[k + 1] / dWhole, slopes);
            slopes[k] -= std::exp(p[k]) * r;
        }
    }
    return sums;
}

CPhaseEquations::CLinear CPhaseEquations::At(const CVector& p) const {
    CLinear at{{}, {}, 0, {}};
    for (const CSums& sums : Sums(p)) {
        CSums::CPair pair = sums.Pair();
        at.residuals.push_back(pair.dLogPhi - std::log(m_dPhi));
        at.slopes.push_back(std::move(pair.logPhiSlopes));
        if (at.logChiSlopes.empty()) {
            at.dLogChi = pair.dLogChi;
            at.logChiSlopes = std::move(pair.logChiSlopes);
            continue;
        }
        for (std::size_t n = 0; n < p.size(); ++n) {
            pair.logChiSlopes[n] -= at.logChiSlopes[n];
        }
        at.residuals.push_back(pair.dLogChi - at.dLogChi);
        at.slopes.push_back(std::move(pair.logChiSlopes));
    }
    double dVolume = -1;
    CVector ones(p.size());
    for (std::size_t n = Volume(p, 0); n < p.size(); ++n) {
        dVolume += p[n];
        ones[n] = 1;
    }
    at.residuals.push_back(dVolume);
    at.slopes.push_back(std::move(ones));
    return at;
}

CPhaseEquations::CCondition CPhaseEquations::Fixed(std::size_t nUnknown, double dValue) {
    return [=](const CVector& p, const CLinear&) {
        return CEquation{p[nUnknown] - dValue, Unit(p.size(), nUnknown)};
    };
}

std::optional<CVector> CPhaseEquations::Corrected(CVector p, const CCondition& condition) const {
    constexpr int N_TRIES = 20;
    constexpr double LARGEST_STEP = 3; ///< of a logarithm
    constexpr double ROUNDING = 1e-14;
    constexpr double TOLERANCE = 1e-11;
    double dBest = TOLERANCE;
    std::optional<CVector> best;
    for (int i = 0; i < N_TRIES; ++i) {
        CLinear at = At(p);
        CEquation last = condition(p, at);
        at.residuals.push_back(last.dResidual);
        at.slopes.push_back(std::move(last.slopes));
        double dSize = 0;
        for (const double d : at.residuals) {
            dSize = std::isfinite(d) ? std::max(dSize, std::abs(d)) : static_cast<double>(INFINITY);
        }
        // Where the equations are ill-conditioned, steps never become small; residuals do, down to rounding.
        if (dSize > dBest / 2 && best) {
            return best;
        }
        if (dSize < dBest) {
            dBest = dSize, best = p;
        }
        if (dSize < ROUNDING) {
            return best;
        }
        const auto step = std::isfinite(dSize) ? Solve(std::move(at.slopes), at.residuals) : std::nullopt;
        for (std::size_t n = 0; step && n < p.size(); ++n) {
            p[n] -= (*step)[n];
            if (n < Volume(p, 0) && !(std::abs((*step)[n]) < LARGEST_STEP)) {
                return best;
            }
        }
        if (!step) {
            return best;
        }
    }
    return best;
}

std::optional<CVector> CPhaseEquations::Direction(const CLinear& at, const CVector& slopes) {
    std::vector<CVector> matrix = at.slopes;
    matrix.push_back(slopes);
    return Solve(std::move(matrix), Unit(slopes.size(), slopes.size() - 1));
}

namespace {

/// What a phase has of each species, relative to phi_0.
CVector Amounts(const CSample& sample, const CVector& p, std::size_t nPhase) {
    const CVector sigmas = CPhaseEquations::Sigmas(p);
    CVector amounts(sample.Species());
    for (std::size_t i = 0; i < amounts.size(); ++i) {
        double dWhole = 0;
        for (std::size_t k = 0; k < sigmas.size(); ++k) {
            dWhole += p[CPhaseEquations::Volume(p, k)] * std::exp(sigmas[k] * sample.Length(i));
        }
        amounts[i] = sample.Weight(i) * std::exp(sigmas[nPhase] * sample.Length(i)) / dWhole;
    }
    return amounts;
}

} // namespace

CPhaseState CPhaseEquations::State(const CVector& p) const {
    const std::size_t nPhases = Phases(p);
    CPhaseState state{Sigmas(p), {p.begin() + static_cast<std::ptrdiff_t>(Volume(p, 0)), p.end()}, {}, {}, 0};
    for (std::size_t k = 1; k < nPhases; ++k) {
        const CPhasePair pair = PhasePair(m_sample, Amounts(m_sample, p, k), -std::exp(p[k - 1]));
        if (k == 1) {
            state.phis.push_back(pair.dThin);
            state.solvents.push_back(1 - pair.dThin);
            state.dChi = pair.dChi;
        }
        state.phis.push_back(pair.dDense);
        state.solvents.push_back(pair.dDense < 0.5 ? 1 - pair.dDense
                                                   : state.solvents.back() * std::exp(pair.dSolventLog));
    }
    return state;
}

CVector CPhaseEquations::Densest(const CVector& p) const {
    CVector amounts = Amounts(m_sample, p, Phases(p) - 1);
    for (double& d : amounts) {
        d *= m_dPhi;
    }
    return amounts;
}

} // namespace flory
