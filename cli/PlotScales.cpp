#include "cli/PlotScales.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/plot/TickWalk.h"

namespace tessara {

namespace {

enum PlotAxis : int { ARGUMENT_AXIS = 1, FUNCTION_AXIS = 2 };

/// Fitting would replace the ends of a scale by those of the data, so an axis has one or the other.
std::optional<AXISSCALE> ScaleOf(char chAxis, const std::optional<std::string>& text, bool bFit) {
    const std::string strOption = std::string("--") + chAxis + "-scale";
    if (text && bFit) {
        throw CException(std::string("--fit ") + chAxis + " and " + strOption + " exclude each other");
    }
    return text ? std::optional(ParseAxisScale(strOption, *text)) : std::nullopt;
}

int FitAxes(const std::string& strAxes) {
    const bool bX = strAxes.find('x') != std::string::npos;
    const bool bY = strAxes.find('y') != std::string::npos;
    return (bX ? ARGUMENT_AXIS : 0) | (bY ? FUNCTION_AXIS : 0);
}

void SetScale(COutputCurve& plot, PlotAxis axis, const char* pszOption,
              const std::optional<AXISSCALE>& scale) {
    if (scale && !plot.UseCustomScale(axis, scale->dFrom, scale->dTo, scale->dStep, scale->nExponent)) {
        throw CException(std::string(pszOption) + ": not a scale that can be drawn");
    }
}

/// A fitted axis keeps the ticks of the round one, of which the first and the last may lie beyond its ends.
void DropTicksBeyondEnds(CHOOSESCALE& scale) {
    const CTickWalk walk(scale);
    const CHOOSESCALE whole = scale;
    for (int i = 0; i < walk.GetCount(); ++i) {
        const double dTick = whole.dFirstTick + i * whole.dStep;
        if (dTick < whole.dLower) {
            scale.dFirstTick = dTick + whole.dStep;
        } else if (dTick <= whole.dUpper) {
            scale.dLastTick = dTick;
        }
    }
}

/// Lets the plot choose its scales and settles the vertical one without the ticks that it would draw beyond
/// the frame.
void SettleFittedFunctionAxis(COutputCurve& plot) {
    CDC nowhere;
    plot.Paint(&nowhere, {0, 0, 1, 1}, nullptr);
    DropTicksBeyondEnds(plot.m_FunctionScale);
    plot.m_nFlags |= OCF_CUSTOMFUNCTION;
}

} // namespace

CPlotScales::CPlotScales(const PLOTOPTIONS& options) : m_nFitAxes(FitAxes(options.strFit)) {
    m_XScale = ScaleOf('x', options.xScale, m_nFitAxes & ARGUMENT_AXIS);
    m_YScale = ScaleOf('y', options.yScale, m_nFitAxes & FUNCTION_AXIS);
}

PLOTWINDOW CPlotScales::GetWindow() const {
    PLOTWINDOW window;
    if (m_XScale) {
        window.dXMin = m_XScale->dFrom;
        window.dXMax = m_XScale->dTo;
    }
    if (m_YScale) {
        window.dYMin = m_YScale->dFrom;
        window.dYMax = m_YScale->dTo;
    }
    return window;
}

void CPlotScales::ApplyTo(COutputCurve& plot) const {
    SetScale(plot, ARGUMENT_AXIS, "--x-scale", m_XScale);
    SetScale(plot, FUNCTION_AXIS, "--y-scale", m_YScale);
    plot.FitScale(m_nFitAxes);
    if (m_nFitAxes & FUNCTION_AXIS) {
        SettleFittedFunctionAxis(plot);
    }
}

} // namespace tessara
