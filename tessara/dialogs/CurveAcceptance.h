#pragma once

#include "tessara/numeric/MultiCurve.h"

namespace tessara {

/// Whether an imported curve is one to calculate with, unless a program has conditions of its own: it has 100
/// points or more, every ordinate is above 0 and at most 5, and within each column no step between
/// neighbours is longer than a hundredth of the column's range. The abscissae are not looked at; what is not
/// a number is refused.
bool IsAcceptable(const CMultiCurve& curve);

} // namespace tessara
