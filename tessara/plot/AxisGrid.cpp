#include "tessara/plot/AxisGrid.h"

#include <cmath>
#include <string>

#include "tessara/plot/TickLabel.h"
#include "tessara/plot/TickWalk.h"

namespace tessara {

namespace {

constexpr int BELOW_LABEL = 96; ///< label tops, and how far grid lines reach, below the plot area
constexpr int BELOW_MINOR = 64;
constexpr int LEFT_LINE = 84;
constexpr int LEFT_MINOR = 72;
constexpr int LEFT_LABEL = 120;

} // namespace

void DrawHorizontalGrid(const CCanvas& canvas, const CPlotArea& area, const CHOOSESCALE& scale,
                        LineTruncation eTruncation) {
    const CTickWalk walk(scale);
    for (int i = 0; i < walk.GetCount(); ++i) {
        const CTick tick = walk.At(i);
        if (IsOnAxis(tick.dFraction)) {
            const int nStart = i == 0 ? area.nLeft - CPlotArea::FRAME_MARGIN : area.nLeft;
            const double dWay = area.nWidth * tick.dFraction;
            const int nX = eTruncation == LineTruncation::sum ? ToCoordinate(nStart + dWay)
                                                              : nStart + ToCoordinate(dWay);
            canvas.Line(nX, area.nTop - CPlotArea::FRAME_MARGIN, nX, area.Bottom() + BELOW_LABEL);
        }
        if (IsOnAxis(tick.dMinorFraction)) {
            const int nX = ToCoordinate(area.nLeft + area.nWidth * tick.dMinorFraction);
            canvas.Line(nX, area.Bottom() + CPlotArea::FRAME_MARGIN, nX, area.Bottom() + BELOW_MINOR);
        }
        if (IsOnAxis(tick.dFraction)) {
            const std::string strLabel = TickLabel(tick.dValue);
            const int nX = ToCoordinate(area.nLeft + ToCoordinate(area.nWidth * tick.dFraction) -
                                        0.5 * canvas.Measure(strLabel).cx);
            canvas.Text(nX, area.Bottom() + BELOW_LABEL, strLabel);
        }
    }
}

void DrawVerticalGrid(const CCanvas& canvas, const CPlotArea& area, const CHOOSESCALE& scale,
                      TickChoice eTicks) {
    const CTickWalk walk(scale);
    const int nHalfDigit = GetDigitHeight(canvas) / 2;
    for (int i = 0; i < walk.GetCount(); ++i) {
        const CTick tick = walk.At(i);
        const bool bShown =
            eTicks == TickChoice::all ? std::isfinite(tick.dFraction) : IsOnAxis(tick.dFraction);
        if (bShown) {
            const int nY = ToCoordinate(area.nTop + area.nHeight * (1 - tick.dFraction));
            canvas.Line(area.nLeft - LEFT_LINE, nY, area.Right(), nY);
        }
        if (IsOnAxis(tick.dMinorFraction)) {
            const int nY = ToCoordinate(area.nTop + area.nHeight * (1 - tick.dMinorFraction));
            canvas.Line(area.nLeft - LEFT_MINOR, nY, area.nLeft - CPlotArea::FRAME_MARGIN, nY);
        }
        if (bShown) {
            const std::string strLabel = TickLabel(tick.dValue * scale.dFactor);
            const int nY = area.nTop + ToCoordinate(area.nHeight * (1 - tick.dFraction)) - nHalfDigit;
            canvas.Text(area.nLeft - LEFT_LABEL - canvas.Measure(strLabel).cx, nY, strLabel);
        }
    }
}

} // namespace tessara
