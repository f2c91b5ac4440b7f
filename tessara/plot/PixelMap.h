#pragma once

#include "tessara/platform/gdi/Geometry.h"
#include "tessara/plot/ChooseScale.h"
#include "tessara/plot/ZoomWindow.h"

namespace tessara {

/// The map between the pixels of a window and the data of the plot that was painted there. The left edge of
/// the rectangle is the lower end of the abscissa, its top the upper end of the ordinate; points outside map
/// to values beyond the axes. A rectangle or an axis without extent gives values that are not finite.
struct CPixelMap {
    CRect rect; ///< of the plot, in pixels
    double dXLower = 0;
    double dXUpper = 0;
    double dYLower = 0;
    double dYUpper = 0;

    CPixelMap() = default;
    CPixelMap(const RECT& rc, const CHOOSESCALE& scaleX, const CHOOSESCALE& scaleY)
        : rect(rc), dXLower(scaleX.dLower), dXUpper(scaleX.dUpper), dYLower(scaleY.dLower),
          dYUpper(scaleY.dUpper) {}

    double GetX(int nPixel) const {
        return (nPixel - rect.left) / static_cast<double>(rect.right - rect.left) * (dXUpper - dXLower) +
               dXLower;
    }
    double GetY(int nPixel) const {
        return (1 - (nPixel - rect.top) / static_cast<double>(rect.bottom - rect.top)) * (dYUpper - dYLower) +
               dYLower;
    }
    /// The pixel of a pair of finite values.
    POINT GetPixel(double dX, double dY) const {
        return {ToCoordinate(rect.left + rect.Width() * ((dX - dXLower) / (dXUpper - dXLower))),
                ToCoordinate(rect.top + rect.Height() * (1 - (dY - dYLower) / (dYUpper - dYLower)))};
    }
    /// The data between two pixels, in whichever order.
    CZoomWindow GetWindow(POINT a, POINT b) const {
        const double dXs[] = {GetX(a.x), GetX(b.x)};
        const double dYs[] = {GetY(a.y), GetY(b.y)};
        return {dXs[dXs[0] < dXs[1]], dXs[!(dXs[0] < dXs[1])], dYs[dYs[0] < dYs[1]], dYs[!(dYs[0] < dYs[1])]};
    }
};

} // namespace tessara
