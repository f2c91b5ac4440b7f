#include "examples/flory/model/TangentPlane.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <stdexcept>

#include "examples/flory/model/Functions.h"
#include "examples/flory/model/Searches.h"
#include "examples/flory/model/Spinodal.h"

namespace flory {

namespace {

/// Of a species, the second phase has exp(-60) at the lowest s: X no longer changes.
constexpr double THINNEST_LOG = 60;
/// Steps of the search, in s times the longest chain: next to 0, relative farther away, and at the most on
/// the side of denser phases. There a minimum is as narrow as the reach over which a rare long chain takes
/// the phase over.
constexpr double NEAR_STEP = 0.15;
constexpr double WIDEST_STEP = 0.5;

} // namespace

CTangentPlane::CTangentPlane(const CSample& sample, double dPhi) : m_sample(sample), m_dPhi(dPhi) {
    if (!(dPhi > 0 && dPhi < 1)) {
        throw std::invalid_argument("a polymer fraction must lie between 0 and 1");
    }
    double dEnd = 1 / sample.Longest();
    while (Amount(dEnd) < 1 - dPhi) {
        dEnd *= 2;
    }
    m_dHighest = FindZero([&](double s) { return Amount(s) - (1 - m_dPhi); }, 0, dEnd);
    m_dLowest = -THINNEST_LOG / sample.Shortest();
}

double CTangentPlane::Amount(double s) const {
    double dSum = 0;
    for (std::size_t i = 0; i < m_sample.Species(); ++i) {
        if (m_sample.Weight(i) > 0) {
            dSum += m_sample.Weight(i) * std::expm1(s * m_sample.Length(i));
        }
    }
    return m_dPhi * dSum;
}

double CTangentPlane::X(double s) const {
    if (std::abs(s) * m_sample.Longest() < 1e-12) {
        return SpinodalChi(m_sample, m_dPhi);
    }
    const double dAmount = Amount(s);
    const double u = dAmount / (1 - m_dPhi);
    if (!(u < 1 + 1e-12)) {
        return std::numeric_limits<double>::infinity();
    }
    return Gain(s, dAmount) / (dAmount * dAmount);
}

/// The numerator of X: the free energy of mixing that the second phase needs, without chi.
double CTangentPlane::Gain(double s, double dAmount) const {
    double dSum = 0;
    for (std::size_t i = 0; i < m_sample.Species(); ++i) {
        if (m_sample.Weight(i) > 0) {
            const double r = m_sample.Length(i);
            dSum += m_sample.Weight(i) / r * StretchExcess(s * r);
        }
    }
    return (1 - m_dPhi) * MixingExcess(dAmount / (1 - m_dPhi)) + m_dPhi * dSum;
}

double CTangentPlane::Slope(double s) const {
    // With D the amount and N the gain, N' = D' (s - ln(1 - u)), and X' = D' [(s - ln(1 - u)) D - 2 N]/D^3.
    const double dAmount = Amount(s);
    return (s - std::log1p(-dAmount / (1 - m_dPhi))) * dAmount - 2 * Gain(s, dAmount);
}

std::vector<CTangentPlane::CMinimum> CTangentPlane::Grid() const {
    const double dLongest = m_sample.Longest();
    std::vector<CMinimum> grid;
    for (double y = m_dLowest * dLongest; y < m_dHighest * dLongest;) {
        grid.push_back({y / dLongest, X(y / dLongest)});
        const double dStep = NEAR_STEP * std::hypot(1, y);
        y += y > 0 ? std::min(dStep, WIDEST_STEP) : dStep;
    }
    grid.push_back({m_dHighest, X(m_dHighest)});
    return grid;
}

std::vector<CTangentPlane::CMinimum> CTangentPlane::Minima() const {
    const std::vector<CMinimum> grid = Grid();
    std::vector<CMinimum> minima;
    for (std::size_t i = 0; i < grid.size(); ++i) {
        const bool bFromLeft = i == 0 || grid[i].dX < grid[i - 1].dX;
        const bool bToRight = i + 1 == grid.size() || grid[i].dX <= grid[i + 1].dX;
        if (bFromLeft && bToRight) {
            const double dLeft = grid[i == 0 ? 0 : i - 1].dS;
            const double dRight = grid[std::min(i + 1, grid.size() - 1)].dS;
            const double s = FindMinimum([&](double d) { return X(d); }, dLeft, dRight);
            minima.push_back(X(s) < grid[i].dX ? CMinimum{s, X(s)} : grid[i]);
        }
    }
    return minima;
}

CTangentPlane::CMinimum CTangentPlane::Minimum() const {
    const std::vector<CMinimum> minima = Minima();
    return *std::min_element(minima.begin(), minima.end(),
                             [](const CMinimum& a, const CMinimum& b) { return a.dX < b.dX; });
}

} // namespace flory
