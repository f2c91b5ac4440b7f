#pragma once

#include <memory>
#include <vector>

#include "cli/CurveParts.h"
#include "tessara/numeric/MultiCurve.h"

namespace tessara {

/// Curves over common abscissae, which ascend, as one multi-curve that is cut at the edges of a window. A
/// gap, and what the window does not show, is not-a-number. Null when nothing is shown.
///
/// Where one curve is cut there is a row at which the others are interpolated. A gap begins and ends a hair
/// beside its neighbours, so that interpolation gives these their values.
std::unique_ptr<CMultiCurve> MakeCurveGrid(const std::vector<double>& x,
                                           const std::vector<const std::vector<double>*>& curves,
                                           const PLOTWINDOW& window);

} // namespace tessara
