#pragma once

#include "tessara/platform/gdi/Geometry.h"

namespace tessara {

/// The plot area of a renderer on the logical page: where the axes span. The drawn frame lies a margin
/// outside it.
struct CPlotArea {
    int nLeft = 384;
    int nTop = 368;
    int nWidth = 0;
    int nHeight = 2944;

    /// The area of a plot with or without room for a legend beside it.
    static CPlotArea ForLegend(bool bLegend) {
        CPlotArea area;
        area.nWidth = bLegend ? 3072 : 4352;
        return area;
    }

    int Right() const { return nLeft + nWidth; }
    int Bottom() const { return nTop + nHeight; }
    RECT Rect() const { return {nLeft, nTop, Right(), Bottom()}; }
    RECT Frame() const {
        return {nLeft - FRAME_MARGIN, nTop - FRAME_MARGIN, Right() + FRAME_MARGIN, Bottom() + FRAME_MARGIN};
    }

    static constexpr int FRAME_MARGIN = 24;
};

constexpr int FRAME_PEN_WIDTH = 32;
constexpr int THIN_PEN_WIDTH = 8; ///< of grids and ticks
constexpr int LABEL_SIZE = 133;
constexpr int TITLE_SIZE = 166;

} // namespace tessara
