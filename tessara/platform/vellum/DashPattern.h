#pragma once

#include <functional>
#include <span>

#include "tessara/platform/gdi/Geometry.h"

namespace tessara {

/// Lengths of dashes and gaps in turn, in logical units, beginning with a dash. Empty for a solid line.
using DashPattern = std::span<const double>;

/// The pattern of a stippled style; patterns repeat after the last one.
TESSARA_API DashPattern GetDashPattern(int nStyle);

/// About how many dashes an open polyline falls into; 0 without a pattern.
TESSARA_API double CountDashes(std::span<const POINT> points, DashPattern pattern);

/// Cuts an open polyline into its dashes and hands out each, in order. A line that would fall into more than
/// MAX_DASHES dashes, so dense that no pattern could be seen, is handed out whole.
TESSARA_API void CutIntoDashes(std::span<const POINT> points, DashPattern pattern,
                               const std::function<void(std::span<const POINT>)>& emit);

constexpr int MAX_DASHES = 100000;

} // namespace tessara
