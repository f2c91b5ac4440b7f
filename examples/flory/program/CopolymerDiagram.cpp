#include "examples/flory/program/CopolymerDiagram.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

#include "examples/flory/model/CopolymerSpinodal.h"
#include "examples/flory/program/DiagramParts.h"
#include "examples/flory/program/RoundScale.h"

namespace flory {

namespace {

CCopolymerBlend Blend(const CCopolymerPlan& plan, double dA, double dB, double dDiblock) {
    return CCopolymerBlend(
        {{plan.dLengthA, 1, dA}, {plan.dLengthB, 0, dB}, {plan.dDiblockLength, plan.dDiblockA, dDiblock}});
}

CCopolymerSpinodal PathOf(const CCopolymerPlan& plan) {
    if (plan.diblock) {
        const double dRest = 1 - *plan.diblock;
        return {Blend(plan, 0, dRest, *plan.diblock), Blend(plan, dRest, 0, *plan.diblock)};
    }
    return {Blend(plan, plan.dShare, 1 - plan.dShare, 0), Blend(plan, 0, 0, 1)};
}

/// From the place on the path and chi to what the axes show.
struct CAxes {
    double dX;
    double dY;

    template <class POINTS>
    void Add(tessara::DIAGRAMPOINTS& target, const POINTS& points) const {
        for (const auto& point : points) {
            target.x.push_back(point.p * dX);
            target.y.push_back(point.dChi * dY);
        }
    }
};

/// The greatest and least chi at which the blends first become unstable, on the path drawn.
void SetScales(tessara::DIAGRAM& diagram, const CCopolymerSpinodal& path, const CAxes& axes) {
    constexpr int N_STEPS = 100;
    constexpr double TOP = 3; ///< times the least: towards pure homopolymers chi has no bound
    double dLeast = INFINITY, dGreatest = 0;
    for (int i = 0; i <= N_STEPS; ++i) {
        const double dChi = path.At(i / static_cast<double>(N_STEPS)).NontrivialMinimum().dChi;
        dLeast = std::min(dLeast, dChi);
        dGreatest = std::isfinite(dChi) ? std::max(dGreatest, dChi) : dGreatest;
    }
    if (dGreatest > 0) {
        constexpr double ROOM = 1.05;
        diagram.x.scale = RoundScale(0, axes.dX);
        diagram.y.scale = RoundScale(0, std::min(ROOM * dGreatest, TOP * dLeast) * axes.dY);
    }
}

} // namespace

tessara::DIAGRAM CopolymerDiagram(const CCopolymerPlan& plan) {
    if (plan.diblock && !(*plan.diblock < 1)) {
        throw std::invalid_argument("a blend of the diblock alone has no composition to vary");
    }
    const CCopolymerSpinodal path = PathOf(plan);
    const CAxes axes{plan.diblock ? 1 - *plan.diblock : 1, plan.dDiblockLength};
    tessara::DIAGRAM diagram;
    diagram.name = plan.diblock ? "Homopolymers A and B with a fixed share of diblock"
                                : "Homopolymers A and B with diblock A-B";
    diagram.x.symbol = plan.diblock ? "f~GA~L" : "f~GD~L";
    diagram.x.format = "%.6lf";
    diagram.y.symbol = "c~GN~iD~L";
    diagram.y.format = "%.6lf";
    AddParts(diagram.spinodal, *path.Table(plan.nPoints), {0, -1, 1, {{2, "x"}}}, true);
    for (tessara::DIAGRAMPART& part : diagram.spinodal.parts) {
        for (double& dX : part.x) {
            dX *= axes.dX;
        }
        part.columns["chi"] = part.y;
        for (double& dY : part.y) {
            dY *= axes.dY;
        }
    }
    axes.Add(diagram.critical, path.CriticalPoints());
    axes.Add(diagram.lifshitz, path.LifshitzPoints());
    SetScales(diagram, path, axes);
    return diagram;
}

} // namespace flory
