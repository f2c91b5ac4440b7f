#include "examples/flory/model/CopolymerBlend.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/Searches.h"

namespace flory {

namespace {

constexpr double INF = std::numeric_limits<double>::infinity();

/// Below this the determinant of a pure diblock is lost in rounding; above, chains are resolved completely.
constexpr double SMALLEST_ARGUMENT = 1e-3;
constexpr double LARGEST_ARGUMENT = 1e3;
constexpr int N_STEPS = 140;

/// Debye's function 2 (exp(-y) - 1 + y)/y^2
double Debye(double y) {
    if (y > 0.1) {
        return 2 * (std::expm1(-y) + y) / (y * y);
    }
    double dSum = 0, dTerm = 1; // sum of 2 (-y)^k / (k + 2)!
    for (int k = 0; k < 12; ++k) {
        dSum += dTerm;
        dTerm *= -y / (k + 3);
    }
    return dSum;
}

/// (1 - exp(-y))/y
double Block(double y) {
    return y > 0 ? -std::expm1(-y) / y : 1;
}

} // namespace

CCopolymerBlend::CCopolymerBlend(std::vector<CBlendComponent> components)
    : m_components(std::move(components)) {
    double dSum = 0;
    for (const CBlendComponent& c : m_components) {
        if (!(c.dLength > 0 && c.dLength <= 1e9) || !(c.dA >= 0 && c.dA <= 1) ||
            !(c.dPhi >= 0 && c.dPhi <= 1)) {
            throw std::invalid_argument(
                "a blend's component needs a length up to 1e9, a share of A and a fraction from 0 to 1");
        }
        dSum += c.dPhi;
    }
    if (!(std::abs(dSum - 1) <= 1e-9)) {
        throw std::invalid_argument("the fractions of a blend must have the sum 1");
    }
}

CCopolymerBlend::CCorrelations CCopolymerBlend::Correlations(double x) const {
    CCorrelations s{0, 0, 0};
    for (const CBlendComponent& c : m_components) {
        const double n = c.dPhi * c.dLength;
        const double dB = 1 - c.dA;
        const double dYA = x * c.dLength * c.dA, dYB = x * c.dLength * dB;
        s.dAA += n * c.dA * c.dA * Debye(dYA);
        s.dBB += n * dB * dB * Debye(dYB);
        s.dAB += n * c.dA * dB * Block(dYA) * Block(dYB);
    }
    return s;
}

/// The derivatives at x = 0, from g = 1 - y/3 and h(y) h(z) = 1 - (y + z)/2.
CCopolymerBlend::CCorrelations CCopolymerBlend::Slopes() const {
    CCorrelations s{0, 0, 0};
    for (const CBlendComponent& c : m_components) {
        const double n = c.dPhi * c.dLength * c.dLength;
        const double dB = 1 - c.dA;
        s.dAA -= n * c.dA * c.dA * c.dA / 3;
        s.dBB -= n * dB * dB * dB / 3;
        s.dAB -= n * c.dA * dB / 2;
    }
    return s;
}

double CCopolymerBlend::R(double x) const {
    if (!(x >= 0)) {
        throw std::invalid_argument("a squared wavenumber must not be negative");
    }
    const CCorrelations s = Correlations(x);
    // Rounding alone is left of the determinant of one kind of chain at x = 0.
    const bool bNone = s.Determinant() <= 1e-14 * s.dAA * s.dBB;
    return bNone ? INF : s.Sum() / s.Determinant();
}

double CCopolymerBlend::SlopeAtZero() const {
    if (std::isinf(R(0))) {
        return -INF;
    }
    const CCorrelations s = Correlations(0);
    const CCorrelations d = Slopes();
    const double dDeterminant = s.Determinant();
    const double dChange = d.dAA * s.dBB + s.dAA * d.dBB - 2 * s.dAB * d.dAB;
    return (d.Sum() - s.Sum() * dChange / dDeterminant) / dDeterminant;
}

CCopolymerBlend::CMinimum CCopolymerBlend::NontrivialMinimum() const {
    double dShortest = INF, dLongest = 0;
    for (const CBlendComponent& c : m_components) {
        dShortest = c.dPhi > 0 ? std::min(dShortest, c.dLength) : dShortest;
        dLongest = c.dPhi > 0 ? std::max(dLongest, c.dLength) : dLongest;
    }
    const auto atLog = [&](double dLog) { return R(std::exp(dLog)); };
    const double dStart = std::log(SMALLEST_ARGUMENT / dLongest);
    const double dStep = (std::log(LARGEST_ARGUMENT / dShortest) - dStart) / N_STEPS;
    double dBest = INF;
    int nBest = 0;
    for (int i = 0; i <= N_STEPS; ++i) {
        const double dR = atLog(dStart + i * dStep);
        if (dR < dBest) {
            dBest = dR, nBest = i;
        }
    }
    const double x = std::exp(FindMinimum(atLog, dStart + (nBest - 1) * dStep, dStart + (nBest + 1) * dStep));
    const bool bTrivial = std::isinf(dBest) || R(x) >= R(0);
    return {bTrivial ? 0 : x, (bTrivial ? R(0) : R(x)) / 2};
}

} // namespace flory
