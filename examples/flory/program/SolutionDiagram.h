#pragma once

#include <functional>
#include <string>
#include <vector>

#include "cli/DiagramFile.h"
#include "examples/flory/model/CloudPointCurve.h"
#include "examples/flory/model/Progress.h"

namespace flory {

/// What is to be drawn of a solution.
struct CSolutionPlan {
    CSample sample;
    COrdinate ordinate; ///< temperature, or chi when empty
    int nPoints = CCloudPointCurve::POINTS;
    bool bSpinodal = true;
    bool bShadow = true; ///< of more than one species; that of one is its cloud-point curve
    bool bPhysicalOnly = false;
    bool bAroundThreePhases = false; ///< shows the region of the three-phase points
    std::vector<double> sections =
        {};                     ///< polymer fractions of the sections that replace the cloud-point curve
    CRowProgress progress = {}; ///< of the sections; what it aborts is not drawn
    /// Is told, in a line for the user, of a section that is not whole.
    std::function<void(const std::string&)> remark = {};
};

/// The phase diagram of a solution over the polymer fraction: spinodal, cloud-point and shadow curve,
/// critical and three-phase points; or spinodal and binodal sections. The curves are whole; scales between
/// round numbers show their beginning, where critical point, cusps and three-phase points lie.
///
/// Throws CException when the region of three-phase points is asked for and there are none, and
/// std::invalid_argument as the model does.
tessara::DIAGRAM SolutionDiagram(const CSolutionPlan& plan);

} // namespace flory
