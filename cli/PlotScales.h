#pragma once

#include <optional>

#include "cli/AxisScale.h"
#include "cli/CurveParts.h"
#include "cli/PlotOptions.h"
#include "tessara/curveplot/OutputCurve.h"

namespace tessara {

/// The scales that the user gives by hand, and the axes that are fitted to the data.
class CPlotScales {
public:
    /// Throws CException for what is no scale, and for an axis that has a scale and is to be fitted too.
    explicit CPlotScales(const PLOTOPTIONS& options);
    CPlotScales() = default;
    CPlotScales(const std::optional<AXISSCALE>& x, const std::optional<AXISSCALE>& y)
        : m_XScale(x), m_YScale(y) {}

    /// Scales given by hand show a part of the data.
    PLOTWINDOW GetWindow() const;
    /// Throws CException when the plot refuses a scale. Setting the plot's data afterwards would undo this.
    void ApplyTo(COutputCurve& plot) const;

private:
    std::optional<AXISSCALE> m_XScale;
    std::optional<AXISSCALE> m_YScale;
    int m_nFitAxes = 0; ///< axes as the plot numbers them
};

} // namespace tessara
