#pragma once

#include "tessara/platform/gdi/Geometry.h"

// How the elements of a phase diagram are drawn, by which they are known again on the screen.

namespace tessara {

constexpr COLORREF CRITICAL_POINT_COLOR = 0x000080;
constexpr COLORREF MULTIPHASE_POINT_COLOR = 0x800000;
constexpr COLORREF FOUND_MULTIPHASE_POINT_COLOR = 0x008000;

// The curve index, and so the colour, of a part of each curve that has a colour index of its own.

constexpr int SpinodalStyle(int nColor) {
    return nColor;
}

constexpr int ShadowStyle(int nColor) {
    return nColor == 0 ? 3 : 4;
}

constexpr int CloudPointStyle(int nColor) {
    return nColor == 0 ? 2 : 5;
}

} // namespace tessara
