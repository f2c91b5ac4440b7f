#pragma once

namespace tessara {

/// The data rectangle that a zoomed diagram shows.
struct CZoomWindow {
    double dXMax = 0;
    double dXMin = 0;
    double dYMax = 0;
    double dYMin = 0;

    friend bool operator==(const CZoomWindow&, const CZoomWindow&) = default;
    bool Contains(double dX, double dY) const {
        return dX >= dXMin && dX <= dXMax && dY >= dYMin && dY <= dYMax;
    }
};

} // namespace tessara
