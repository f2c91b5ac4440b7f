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
constexpr int N_STEPS = 72;

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
    double dSum = 0;
    for (std::size_t i = 0; i < m_sample.Species(); ++i) {
        if (m_sample.Weight(i) > 0) {
            const double r = m_sample.Length(i);
            dSum += m_sample.Weight(i) / r * StretchExcess(s * r);
        }
    }
    return ((1 - m_dPhi) * MixingExcess(u) + m_dPhi * dSum) / (dAmount * dAmount);
}

std::vector<CTangentPlane::CMinimum> CTangentPlane::Minima() const {
    const double dLongest = m_sample.Longest();
    const double dStart = std::asinh(m_dLowest * dLongest);
    const double dStep = (std::asinh(m_dHighest * dLongest) - dStart) / N_STEPS;
    std::vector<CMinimum> grid;
    for (int i = 0; i <= N_STEPS; ++i) {
        const double s = i < N_STEPS ? std::sinh(dStart + i * dStep) / dLongest : m_dHighest;
        grid.push_back({s, X(s)});
    }
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
