#include "cli/view/ShownWindow.h"

#include <algorithm>

namespace tessara {

namespace {

void Narrow(double& dMin, double& dMax, double dFrom, double dTo) {
    dMin = std::max(dMin, dFrom);
    dMax = std::min(dMax, dTo);
}

} // namespace

PLOTWINDOW ShownWindow(const CAxisScales& scales, const std::optional<CZoomWindow>& zoom) {
    PLOTWINDOW window;
    if (scales.x) {
        Narrow(window.dXMin, window.dXMax, scales.x->dFrom, scales.x->dTo);
    }
    if (scales.y) {
        Narrow(window.dYMin, window.dYMax, scales.y->dFrom, scales.y->dTo);
    }
    if (zoom) {
        Narrow(window.dXMin, window.dXMax, zoom->dXMin, zoom->dXMax);
        Narrow(window.dYMin, window.dYMax, zoom->dYMin, zoom->dYMax);
    }
    return window;
}

std::string DescribeIn(const CPixelMap& map, const QUANTITY& abscissa, double dX, const QUANTITY& ordinate,
                       double dY) {
    const double dColumn = (map.dXUpper - map.dXLower) / map.rect.Width();
    const double dRow = (map.dYUpper - map.dYLower) / map.rect.Height();
    return abscissa.Show(TextOfNumber(dX, dColumn)) + ", " + ordinate.Show(TextOfNumber(dY, dRow));
}

} // namespace tessara
