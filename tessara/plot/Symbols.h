#pragma once

#include "tessara/platform/gdi/MetaFileDC.h"

enum SymbolKind : int {
    SYMBOL_FILLED_CIRCLE = 6,
    SYMBOL_FILLED_RECTANGLE = 7,
    SYMBOL_OPEN_CIRCLE = 8,
    SYMBOL_BLACK_DIAMOND = 10, ///< an outline of the colour, filled with black
    SYMBOL_OPEN_DIAMOND = 11
};

/// Draws one point marker with its centre at pt, in logical units, on the surface and, when it is given, on
/// the picture. Markers are about 64 units across, small ones 44 (rectangles and open circles have one size).
/// Other kinds draw nothing.
TESSARA_API void DrawSymbol(CDC* pDC, int nKind, int bSmall, CPoint& pt, COLORREF color,
                            CMetaFileDC* pMetaDC);
