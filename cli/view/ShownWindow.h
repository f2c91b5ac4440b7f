#pragma once

#include <optional>
#include <string>

#include "cli/CurveParts.h"
#include "cli/view/PlainText.h"
#include "cli/view/ShownPlot.h"

namespace tessara {

/// What scales, and a zoom within them, show of the data.
PLOTWINDOW ShownWindow(const CAxisScales& scales, const std::optional<CZoomWindow>& zoom);

/// A point in words, with digits enough for a pixel of the map.
std::string DescribeIn(const CPixelMap& map, const QUANTITY& abscissa, double dX, const QUANTITY& ordinate,
                       double dY);

} // namespace tessara
