#pragma once

#include "tessara/platform/gdi/Bitmap.h"
#include "tessara/platform/gdi/DC.h"

namespace tessara {

constexpr unsigned int NO_BITMAP = 0xFFFFFFFF;

/// Loads a bitmap of the resources and describes it. Throws CResourceException when that fails.
BITMAP LoadBitmapOrThrow(CBitmap& bitmap, unsigned int nID);

/// Copies a whole bitmap to a place.
void DrawBitmap(CDC& dc, CPoint place, CBitmap& bitmap, const BITMAP& info);

} // namespace tessara
