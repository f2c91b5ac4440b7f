#include "examples/flory/program/SolutionDiagram.h"

#include <algorithm>
#include <cmath>

#include "examples/flory/model/BinodalSection.h"
#include "examples/flory/model/MultiplePoints.h"
#include "examples/flory/model/Spinodal.h"
#include "examples/flory/program/Arguments.h"
#include "examples/flory/program/DiagramParts.h"
#include "examples/flory/program/SolutionRegion.h"
#include "tessara/platform/base/Exception.h"

namespace flory {

namespace {

std::string DefaultName(const CSolutionPlan& plan) {
    constexpr std::size_t MAX_LISTED = 3;
    const std::string strChains = plan.sample.Species() <= MAX_LISTED
                                      ? "chain length " + ListText(plan.sample.Lengths())
                                      : std::to_string(plan.sample.Species()) + " chain lengths";
    if (plan.sections.size() == 1) {
        return "Phases of a solution of polymer fraction " + ListText(plan.sections);
    }
    return (plan.sections.empty() ? "Polymer of " : "Binodal sections, polymer of ") + strChains;
}

void SetAxes(tessara::DIAGRAM& diagram, const CSolutionPlan& plan) {
    diagram.x.symbol = "f~G";
    diagram.x.format = "%.6lf";
    diagram.y.symbol = plan.ordinate ? "T~i / K~N" : "c~G";
    diagram.y.format = plan.ordinate ? "%.3lf" : "%.6lf";
}

void AddPoint(tessara::DIAGRAMPOINTS& points, const COrdinate& ordinate, double dPhi, double dChi) {
    const double dOrdinate = OrdinateOf(ordinate, dChi);
    if (dOrdinate == dOrdinate) {
        points.x.push_back(dPhi);
        points.y.push_back(dOrdinate);
    }
}

void AddSpinodal(tessara::DIAGRAM& diagram, const CSolutionPlan& plan) {
    constexpr double EDGE = 1e-4; ///< of the way from the critical point to either end
    const double dCritical = CriticalPoint(plan.sample).dPhi;
    const auto pTable =
        SpinodalTable(plan.sample, EDGE * dCritical, 1 - EDGE * (1 - dCritical), plan.nPoints, plan.ordinate);
    AddParts(diagram.spinodal, *pTable, {0, -1, 1, {{2, "chi"}}}, false);
}

void KeepPhysical(tessara::DIAGRAMCURVE& curve) {
    std::erase_if(curve.parts, [](const tessara::DIAGRAMPART& part) { return part.nColor != 0; });
}

void AddCloudPointCurve(tessara::DIAGRAM& diagram, const CSolutionPlan& plan, const CCloudPointCurve& curve) {
    const auto pTable = curve.Table(plan.ordinate);
    const bool bBranches = !plan.bPhysicalOnly && curve.Stretches().size() > 1;
    // The shadow curve of one species is its cloud-point curve.
    const bool bShadow = plan.bShadow && plan.sample.Species() > 1;
    AddParts(diagram.binodal, *pTable, {0, bShadow ? 2 : -1, 1, {{3, "sigma"}, {4, "chi"}}}, true);
    if (plan.bPhysicalOnly) {
        KeepPhysical(diagram.binodal);
    }
    for (tessara::DIAGRAMPART& part : diagram.binodal.parts) {
        part.bHasColor = bBranches;
    }
    const CCriticalPoint critical = CriticalPoint(plan.sample);
    AddPoint(diagram.critical, plan.ordinate, critical.dPhi, critical.dChi);
    for (const CThreePhasePoint& point : curve.ThreePhasePoints()) {
        AddPoint(diagram.multiphase, plan.ordinate, point.dPhi, point.dChi);
    }
    // The weights of a critical end point are typed with some digits only.
    constexpr double NEAR = 1e-7, SAME = 1e-3;
    const std::optional<double> margin = CriticalMargin(plan.sample);
    const bool bFound =
        std::any_of(curve.ThreePhasePoints().begin(), curve.ThreePhasePoints().end(),
                    [&](const CThreePhasePoint& p) { return std::abs(p.dPhi / critical.dPhi - 1) < SAME; });
    if (margin && std::abs(*margin) < NEAR && !bFound) {
        AddPoint(diagram.multiphase, plan.ordinate, critical.dPhi, critical.dChi);
    }
}

/// What there is to say of a section that does not reach from its cloud point to the greatest chi.
std::string RemarkOn(const CBinodalSection& section, double dPhi) {
    const std::string strSection = "--section: the solution of polymer fraction " + ListText({dPhi});
    if (!section.IsComplete()) {
        return strSection + " could not be computed between chi " + ListText({section.LastChi()}) + " and " +
               ListText({section.MaxChi()});
    }
    const bool bNone = section.Arcs().empty() && section.MultiphaseLines().empty();
    return bNone ? strSection + " does not separate below chi " + ListText({section.MaxChi()}) : "";
}

CBinodalSection SectionOf(const CSolutionPlan& plan, std::size_t nSection) {
    constexpr int STEPS = 100;
    const auto progress = [&](int nDone, int) {
        return !plan.progress || plan.progress(STEPS * static_cast<int>(nSection) + nDone,
                                               STEPS * static_cast<int>(plan.sections.size()));
    };
    CBinodalSection section(plan.sample, plan.sections[nSection], 0, progress);
    const std::string strRemark = RemarkOn(section, plan.sections[nSection]);
    if (plan.remark && !strRemark.empty()) {
        plan.remark(strRemark);
    }
    return section;
}

/// A legend would call the phases cloud points and shadows, so there is none; dashed lines say where the
/// solutions lie.
void AddSections(tessara::DIAGRAM& diagram, const CSolutionPlan& plan) {
    for (std::size_t n = 0; n < plan.sections.size(); ++n) {
        const auto pTable = SectionOf(plan, n).Table(plan.ordinate);
        AddParts(diagram.binodal, *pTable, {0, 1, 2, {{3, "volume"}, {4, "sigma"}, {5, "chi"}}}, true);
    }
    if (plan.bPhysicalOnly) {
        KeepPhysical(diagram.binodal);
    }
    diagram.bLegend = false;
    diagram.leftBoundary = *std::min_element(plan.sections.begin(), plan.sections.end());
    diagram.rightBoundary = *std::max_element(plan.sections.begin(), plan.sections.end());
}

void SetScales(tessara::DIAGRAM& diagram, const CSolutionPlan& plan, const CCloudPointCurve& curve) {
    if (plan.bAroundThreePhases && curve.ThreePhasePoints().empty()) {
        throw CException("--zoom three-phase: this polymer has no three-phase point");
    }
    const CDiagramScales scales = plan.bAroundThreePhases ? ScalesOfThreePhases(curve, plan.ordinate)
                                                          : ScalesOfSolution(curve, plan.ordinate);
    if (scales.x && scales.y) {
        diagram.x.scale = scales.x;
        diagram.y.scale = scales.y;
    }
}

} // namespace

tessara::DIAGRAM SolutionDiagram(const CSolutionPlan& plan) {
    tessara::DIAGRAM diagram;
    diagram.name = DefaultName(plan);
    SetAxes(diagram, plan);
    // So thin that in a picture the curves do not end before the frame does.
    constexpr double THINNEST = 1e-100;
    const CCloudPointCurve curve(plan.sample, plan.nPoints, THINNEST);
    if (plan.bSpinodal) {
        AddSpinodal(diagram, plan);
    }
    if (plan.sections.empty()) {
        AddCloudPointCurve(diagram, plan, curve);
    } else {
        AddSections(diagram, plan);
    }
    SetScales(diagram, plan, curve);
    return diagram;
}

} // namespace flory
