#pragma once

#include "tessara/platform/gdi/DC.h"

// The logical page of all plots: 5120 x 3680 units, y downward, fitted with its proportions kept.

namespace tessara {

constexpr int PAGE_WIDTH = 5120;
constexpr int PAGE_HEIGHT = 3680;

} // namespace tessara

/// Maps the logical page into a client rectangle (left and top 0) of the surface: as large as fits, centred
/// in the other direction.
TESSARA_API void CenterDC(CDC* pDC, RECT& rc);
