#pragma once

#include <span>
#include <vector>

#include "tessara/platform/gdi/MetaFileDC.h"

/// Curves as the renderers show them, told apart by colour or, stippled, by dash pattern.
///
/// A style number is a curve's colour index. In colour, style i is a solid line in exactly colour i of the
/// palette that the surface carries (tessara::CPaletteScope; without one, red, blue, green, cyan, magenta,
/// yellow). Stippled, it is a black line with dash pattern i. Numbers beyond the palette or the patterns
/// start again at the first. Style -1 draws with each surface's own pen. Widths and dash lengths are in page
/// units; one point is drawn as a dot.

/// Draws the open polyline through nCount points, in logical units, on the surface and, when it is given, on
/// the recorded picture. Returns 1.
TESSARA_API int PolyLineStippledEx(CDC* pDC, POINT* pPoints, int nCount, int nStyle, CMetaFileDC* pMetaDC,
                                   int bStippled);

/// Draws the legend sample of a style in a rectangle, on both surfaces: a bar of its colour or a piece of its
/// dash pattern. Returns 1.
TESSARA_API int LegendRectangleStippledEx(CDC* pDC, int left, int top, int right, int bottom, int nStyle,
                                          CMetaFileDC* pMetaDC, int bStippled);

namespace tessara {

/// True for a printing surface with so few colours that curves must be told apart by dashes. Such a surface
/// gets the dash patterns of all styles, whether asked for or not.
TESSARA_API bool NeedsDashes(const CDC& dc);

/// While it lives, a surface carries a renderer's colour table. The surface must outlive the scope.
class TESSARA_API CPaletteScope {
public:
    CPaletteScope(CDC& dc, std::span<const COLORREF> palette);
    ~CPaletteScope();
    CPaletteScope(const CPaletteScope&) = delete;
    CPaletteScope& operator=(const CPaletteScope&) = delete;

private:
    CDC& m_dc;
    std::vector<COLORREF> m_previous;
};

} // namespace tessara
