#include "tessara/platform/vellum/Stippled.h"

#include <array>

#include "tessara/platform/gdi/DrawSink.h"
#include "tessara/platform/gdi/PolylineReduction.h"
#include "tessara/platform/vellum/DashPattern.h"

namespace {

constexpr int CURVE_WIDTH =
    12; ///< page units: one pixel in a window of 800 x 575, 0.4 mm on a page 160 mm wide
constexpr int DOT_WIDTH = 40; ///< of a curve of one point, which would be lost on a grid line
constexpr std::array<COLORREF, 6> DEFAULT_PALETTE{0x0000FF, 0xFF0000, 0x00FF00, 0xFFFF00, 0xFF00FF, 0x00FFFF};
/// Curves are dashed within the space that a metafile can hold.
constexpr RECT DASHED_SPACE{-32768, -32768, 32767, 32767};

COLORREF ColorOf(const CDC& dc, int nStyle) {
    const std::span<const COLORREF> carried = dc.GetCurvePalette();
    const std::span<const COLORREF> palette =
        carried.empty() ? std::span<const COLORREF>(DEFAULT_PALETTE) : carried;
    return palette[static_cast<std::size_t>(nStyle) % palette.size()];
}

/// By a pattern of the device's own where it has one, so that a file does not grow with the dashes. A line of
/// one dash or of too many is better drawn as it is.
void DrawPiece(CDC& dc, std::span<const POINT> piece, tessara::DashPattern pattern) {
    tessara::CDrawSink* const pSink = dc.GetSink();
    const double dDashes = tessara::CountDashes(piece, pattern);
    if (pSink && dDashes > 1 && dDashes <= tessara::MAX_DASHES &&
        pSink->DashedPolyline(dc.GetState(), piece, pattern)) {
        return;
    }
    tessara::CutIntoDashes(piece, pattern, [&](std::span<const POINT> dash) {
        dc.Polyline(dash.data(), static_cast<int>(dash.size()));
    });
}

void DrawDashed(CDC& dc, std::span<const POINT> points, int nStyle) {
    std::vector<POINT> kept(points.begin(), points.end());
    kept.resize(tessara::MergeColumns(kept));
    tessara::ClipPolyline(kept, DASHED_SPACE, [&](std::span<const POINT> piece) {
        DrawPiece(dc, piece, tessara::GetDashPattern(nStyle));
    });
}

void DrawCurve(CDC& dc, std::span<const POINT> points, int nStyle, COLORREF color, bool bStippled) {
    const int nWidth = points.size() == 1 ? DOT_WIDTH : CURVE_WIDTH;
    CPen pen(PS_SOLID, nWidth, bStippled ? 0 : color);
    CPen* pOldPen = dc.SelectObject(&pen);
    if (bStippled) {
        DrawDashed(dc, points, nStyle);
    } else {
        dc.Polyline(points.data(), static_cast<int>(points.size()));
    }
    dc.SelectObject(pOldPen);
}

void DrawBar(CDC& dc, const RECT& rect, COLORREF color) {
    CBrush brush(color);
    CBrush* pOldBrush = dc.SelectObject(&brush);
    CGdiObject* pOldPen = dc.SelectStockObject(NULL_PEN);
    dc.Rectangle(&rect);
    dc.SelectObject(pOldPen);
    dc.SelectObject(pOldBrush);
}

} // namespace

int PolyLineStippledEx(CDC* pDC, POINT* pPoints, int nCount, int nStyle, CMetaFileDC* pMetaDC,
                       int bStippled) {
    if (nCount < 1) {
        return 1;
    }
    const std::span<const POINT> points(pPoints, static_cast<std::size_t>(nCount));
    const bool bDashed = bStippled || tessara::NeedsDashes(*pDC);
    for (CDC* pSurface : {pDC, static_cast<CDC*>(pMetaDC)}) {
        if (pSurface && nStyle < 0) {
            pSurface->Polyline(pPoints, nCount);
        } else if (pSurface) {
            DrawCurve(*pSurface, points, nStyle, ColorOf(*pDC, nStyle), bDashed);
        }
    }
    return 1;
}

int LegendRectangleStippledEx(CDC* pDC, int left, int top, int right, int bottom, int nStyle,
                              CMetaFileDC* pMetaDC, int bStippled) {
    if (bStippled || nStyle < 0 || tessara::NeedsDashes(*pDC)) {
        const int nMiddle = top + (bottom - top) / 2;
        std::array<POINT, 2> ends{POINT{left, nMiddle}, POINT{right, nMiddle}};
        return PolyLineStippledEx(pDC, ends.data(), 2, nStyle, pMetaDC, bStippled);
    }
    for (CDC* pSurface : {pDC, static_cast<CDC*>(pMetaDC)}) {
        if (pSurface) {
            DrawBar(*pSurface, {left, top, right, bottom}, ColorOf(*pDC, nStyle));
        }
    }
    return 1;
}

namespace tessara {

bool NeedsDashes(const CDC& dc) {
    constexpr int MIN_COLORS = 3;
    return dc.IsPrinting() && dc.GetDeviceCaps(NUMCOLORS) < MIN_COLORS;
}

CPaletteScope::CPaletteScope(CDC& dc, std::span<const COLORREF> palette)
    : m_dc(dc), m_previous(dc.GetCurvePalette().begin(), dc.GetCurvePalette().end()) {
    m_dc.SetCurvePalette(palette);
}

CPaletteScope::~CPaletteScope() {
    m_dc.SetCurvePalette(m_previous);
}

} // namespace tessara
