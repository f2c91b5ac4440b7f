#pragma once

#include "cli/AxisScale.h"

namespace flory {

/// A scale from a round number to a round one that holds both values, with four to ten round steps between
/// them. REQUIRES: dMin < dMax, both finite.
tessara::AXISSCALE RoundScale(double dMin, double dMax);

} // namespace flory
