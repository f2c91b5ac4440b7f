#pragma once

#include "tessara/plot/Canvas.h"
#include "tessara/plot/ChooseScale.h"
#include "tessara/plot/PlotArea.h"

// The grids of the renderers: for each tick a line across the frame that stands out beyond it, a half-step
// tick and a label. Drawn in the canvas' pen and font.

namespace tessara {

/// Which ticks a grid shows: those on the axis, or all, also those that a fitted axis leaves beyond its ends.
enum class TickChoice { onAxis, all };

/// What of the place of an upright grid line is truncated to whole units: the sum of the axis' start and the
/// way along it, or the way alone. A way that rounding leaves just short of a whole unit may reach it in the
/// sum.
enum class LineTruncation { sum, way };

/// The abscissa's grid. Labels show raw values, centred below the frame. The line of the first tick is drawn
/// a margin further left, on the frame's edge when the axis starts there.
void DrawHorizontalGrid(const CCanvas& canvas, const CPlotArea& area, const CHOOSESCALE& scale,
                        LineTruncation eTruncation = LineTruncation::sum);

/// The ordinate's grid. Labels show values times the scale's factor, right-aligned left of the frame.
void DrawVerticalGrid(const CCanvas& canvas, const CPlotArea& area, const CHOOSESCALE& scale,
                      TickChoice eTicks);

} // namespace tessara
