#include "examples/flory/model/CopolymerSpinodal.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <stdexcept>
#include <utility>

#include "examples/flory/model/Searches.h"

namespace flory {

CCopolymerSpinodal::CCopolymerSpinodal(CCopolymerBlend first, CCopolymerBlend second)
    : m_first(std::move(first)), m_second(std::move(second)) {
    const auto& a = m_first.Components();
    const auto& b = m_second.Components();
    bool bSame = a.size() == b.size();
    for (std::size_t i = 0; bSame && i < a.size(); ++i) {
        bSame = a[i].dLength == b[i].dLength && a[i].dA == b[i].dA;
    }
    if (!bSame) {
        throw std::invalid_argument("both ends of a path of blends must have the same components");
    }
}

CCopolymerBlend CCopolymerSpinodal::At(double p) const {
    if (!(p >= 0 && p <= 1)) {
        throw std::invalid_argument("a place on a path of blends must lie between 0 and 1");
    }
    std::vector<CBlendComponent> components = m_first.Components();
    for (std::size_t i = 0; i < components.size(); ++i) {
        components[i].dPhi = (1 - p) * components[i].dPhi + p * m_second.Components()[i].dPhi;
    }
    return CCopolymerBlend(std::move(components));
}

/// Between -1 and 1, zero in a critical point.
double CCopolymerSpinodal::SkewAt(double p) const {
    const CCopolymerBlend blend = At(p);
    double dAll = 0, dA = 0;
    for (const CBlendComponent& c : blend.Components()) {
        dAll += c.dPhi * c.dLength;
        dA += c.dPhi * c.dLength * c.dA;
    }
    double dSum = 0, dSize = 0;
    for (const CBlendComponent& c : blend.Components()) {
        const double dTerm = c.dPhi * c.dLength * c.dLength * std::pow(c.dA - dA / dAll, 3);
        dSum += dTerm;
        dSize += std::abs(dTerm);
    }
    return dSize > 0 ? dSum / dSize : 0;
}

std::vector<CCopolymerSpinodal::CCriticalPoint> CCopolymerSpinodal::CriticalPoints() const {
    constexpr int N_STEPS = 200;
    constexpr double NONE = 1e-12; ///< what rounding leaves of zero
    std::vector<CCriticalPoint> points;
    const auto add = [&](double p) {
        const CCopolymerBlend blend = At(p);
        if (std::isfinite(blend.TrivialChi()) && blend.NontrivialMinimum().x == 0) {
            points.push_back({p, blend.TrivialChi()});
        }
    };
    double dBefore = SkewAt(0);
    if (std::abs(dBefore) < NONE) {
        add(0);
    }
    for (int i = 0; i < N_STEPS; ++i) {
        const double dFirst = i / static_cast<double>(N_STEPS), dLast = (i + 1.) / N_STEPS;
        const double dAfter = SkewAt(dLast);
        if (std::abs(dBefore) >= NONE && (std::abs(dAfter) < NONE || (dBefore < 0) != (dAfter < 0))) {
            add(std::abs(dAfter) < NONE ? dLast
                                        : FindZero([&](double p) { return SkewAt(p); }, dFirst, dLast));
        }
        dBefore = dAfter;
    }
    return points;
}

std::vector<CCopolymerSpinodal::CLifshitzPoint> CCopolymerSpinodal::LifshitzPoints() const {
    // The slope is infinite at the ends of a path; its sign and a root of moderate size are enough.
    const auto height = [&](double p) {
        const double dSlope = SlopeAt(p), dR = 2 * At(p).TrivialChi();
        return std::isinf(dSlope) ? std::copysign(1., dSlope) : std::tanh(dSlope / dR / 1e3);
    };
    constexpr int N_STEPS = 200;
    // One kind of chain alone has no slope; the sign that counts is that of the blends beside it.
    constexpr double INSIDE = 1e-9;
    std::vector<CLifshitzPoint> points;
    for (int i = 0; i < N_STEPS; ++i) {
        const double dFirst = std::max(INSIDE, i / static_cast<double>(N_STEPS));
        const double dLast = std::min(1 - INSIDE, (i + 1.) / N_STEPS);
        const double dBefore = SlopeAt(dFirst), dAfter = SlopeAt(dLast);
        if ((dBefore < 0) != (dAfter < 0)) {
            const double p = FindZero(height, dFirst, dLast);
            points.push_back({p, At(p).TrivialChi()});
        }
    }
    return points;
}

std::unique_ptr<CMultipartTable> CCopolymerSpinodal::Table(int nPoints) const {
    if (nPoints < 2) {
        throw std::invalid_argument("a spinodal needs at least 2 points");
    }
    CPartTable table(3);
    table.BeginPart(TRIVIAL);
    for (int i = 0; i < nPoints; ++i) {
        const double p = i / (nPoints - 1.);
        table.AddRow({p, At(p).TrivialChi(), 0});
    }
    AddNontrivial(nPoints, table);
    return table.Make();
}

void CCopolymerSpinodal::AddNontrivial(int nPoints, CPartTable& table) const {
    const std::vector<CLifshitzPoint> lifshitz = LifshitzPoints();
    std::size_t nNext = 0;
    bool bOpen = false;
    for (int i = 0; i < nPoints; ++i) {
        const double p = i / (nPoints - 1.);
        const CCopolymerBlend::CMinimum minimum = At(p).NontrivialMinimum();
        const bool bNontrivial = minimum.x > 0;
        if (bNontrivial && !bOpen) {
            table.BeginPart(NONTRIVIAL);
        }
        for (; nNext < lifshitz.size() && lifshitz[nNext].p <= p; ++nNext) {
            if (bNontrivial || bOpen) {
                table.AddRow({lifshitz[nNext].p, lifshitz[nNext].dChi, 0});
            }
        }
        if (bNontrivial) {
            table.AddRow({p, minimum.dChi, minimum.x});
        }
        bOpen = bNontrivial;
    }
}

} // namespace flory
