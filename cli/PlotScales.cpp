#include "cli/PlotScales.h"

#include "tessara/platform/base/Exception.h"

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
}

} // namespace tessara
