#pragma once

#include <string>

#include "tessara/plot/Canvas.h"

namespace tessara {

/// A tick's value as all axes show it: "%lg".
std::string TickLabel(double dValue);

/// The line height of digits in the surface's font, which centres labels on their ticks.
int GetDigitHeight(const CCanvas& canvas);

} // namespace tessara
