#pragma once

#include <cstddef>
#include <functional>
#include <span>

#include "tessara/platform/gdi/Geometry.h"

namespace tessara {

/// Thins an open polyline in place without changing what a one-pixel line through it covers, and returns the
/// number of points left: consecutive equal points are kept once, and of a run inside one column (equal x)
/// the first, the lowest, the highest and the last, in their order. One pass; at least one point is kept.
TESSARA_API std::size_t MergeColumns(std::span<POINT> points);

/// Hands out the pieces of an open polyline that lie in a box (edges included), each piece in order, cut at
/// the edges. A polyline that lies inside is handed out as it is. Slopes are kept as well as integers allow.
TESSARA_API void ClipPolyline(std::span<const POINT> points, const RECT& box,
                              const std::function<void(std::span<const POINT>)>& emit);

} // namespace tessara
