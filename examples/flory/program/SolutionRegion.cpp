#include "examples/flory/program/SolutionRegion.h"

#include <algorithm>
#include <cmath>

#include "examples/flory/model/Spinodal.h"
#include "examples/flory/program/RoundScale.h"

namespace flory {

namespace {

constexpr double DENSEST = 0.95; ///< beyond, curves only climb along the edge
constexpr double REACH = 2.2;    ///< of the fractions shown beyond those of interest

/// The least and the greatest of some values.
struct CRange {
    double dMin = INFINITY;
    double dMax = -INFINITY;

    void Add(double dValue) {
        dMin = std::fmin(dMin, dValue);
        dMax = std::fmax(dMax, dValue);
    }
    bool IsEmpty() const { return !(dMin < dMax); }
    std::optional<tessara::AXISSCALE> Scale(double dRoom) const {
        const double dMargin = dRoom * (dMax - dMin);
        return IsEmpty() ? std::nullopt : std::optional(RoundScale(dMin - dMargin, dMax + dMargin));
    }
};

/// What a diagram is drawn for: where critical point, cusps and three-phase points lie.
struct CInterest {
    CRange phi;
    CRange chi;

    void Add(double dPhi, double dChi) {
        phi.Add(dPhi);
        chi.Add(dChi);
    }
};

void AddCusps(CInterest& interest, const CCloudPointCurve& curve) {
    for (const CCoexistence& cusp : curve.Cusps()) {
        interest.Add(cusp.dFirst, cusp.dChi);
    }
    for (const CThreePhasePoint& point : curve.ThreePhasePoints()) {
        interest.Add(point.dPhi, point.dChi);
    }
}

/// Where chi has no temperature, the axis ends at twice the other end's.
std::optional<tessara::AXISSCALE> OrdinateScale(double dFirst, double dLast, double dRoom) {
    if (std::isnan(dFirst) && std::isnan(dLast)) {
        return std::nullopt;
    }
    CRange range;
    range.Add(std::isnan(dFirst) ? 2 * dLast : dFirst);
    range.Add(std::isnan(dLast) ? 2 * dFirst : dLast);
    return range.Scale(dRoom);
}

} // namespace

CDiagramScales ScalesOfSolution(const CCloudPointCurve& curve, const COrdinate& ordinate) {
    const CCriticalPoint critical = CriticalPoint(curve.Function().Sample());
    CInterest interest;
    interest.Add(critical.dPhi, critical.dChi);
    AddCusps(interest, curve);
    const double dDensest = std::min(REACH * interest.phi.dMax, DENSEST);
    const auto& points = curve.Points();
    const auto first = std::find_if(points.begin(), points.end() - 1,
                                    [&](const CCoexistence& c) { return c.dFirst <= dDensest; });
    double dLeast = interest.chi.dMin;
    for (const CCoexistence& c : points) {
        dLeast = std::min(dLeast, c.dChi);
    }
    const double dGreatest = std::max(interest.chi.dMax, first->dChi);
    return {RoundScale(0, dDensest),
            OrdinateScale(OrdinateOf(ordinate, dLeast), OrdinateOf(ordinate, dGreatest), 0.)};
}

CDiagramScales ScalesOfThreePhases(const CCloudPointCurve& curve, const COrdinate& ordinate) {
    constexpr double ROOM = 0.1;
    CInterest interest;
    AddCusps(interest, curve);
    for (const CThreePhasePoint& point : curve.ThreePhasePoints()) {
        interest.Add(point.dShadows[0], point.dChi);
        interest.Add(point.dShadows[1], point.dChi);
    }
    return {interest.phi.Scale(ROOM), OrdinateScale(OrdinateOf(ordinate, interest.chi.dMin),
                                                    OrdinateOf(ordinate, interest.chi.dMax), ROOM)};
}

} // namespace flory
