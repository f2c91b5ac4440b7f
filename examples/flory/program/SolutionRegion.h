#pragma once

#include <optional>

#include "cli/AxisScale.h"
#include "examples/flory/model/CloudPointCurve.h"

namespace flory {

/// The axes of a diagram; nothing where the curve has no ordinate at all.
struct CDiagramScales {
    std::optional<tessara::AXISSCALE> x;
    std::optional<tessara::AXISSCALE> y;
};

/// The beginning of phase separation: fractions up to about twice those of the critical point, the cusps and
/// the three-phase points, ordinates from the first cloud point to that of the densest solution shown.
CDiagramScales ScalesOfSolution(const CCloudPointCurve& curve, const COrdinate& ordinate);

/// The three-phase points with their shadow points, and the cusps, with some room around.
/// REQUIRES: the curve has a three-phase point.
CDiagramScales ScalesOfThreePhases(const CCloudPointCurve& curve, const COrdinate& ordinate);

} // namespace flory
