#pragma once

#include <array>
#include <bit>
#include <cstdint>

namespace tessara {

/// The data rectangle that a zoomed diagram shows.
struct CZoomWindow {
    double dXMax = 0;
    double dXMin = 0;
    double dYMax = 0;
    double dYMin = 0;

    /// Bit by bit, so that a window of which something is not a number is equal to itself, too.
    friend bool operator==(const CZoomWindow& a, const CZoomWindow& b) {
        using CBits = std::array<std::uint64_t, 4>;
        return std::bit_cast<CBits>(a) == std::bit_cast<CBits>(b);
    }
    bool Contains(double dX, double dY) const {
        return dX >= dXMin && dX <= dXMax && dY >= dYMin && dY <= dYMax;
    }
};

} // namespace tessara
