#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "tessara/platform/gdi/Bitmap.h"
#include "tessara/platform/gdi/GdiObject.h"
#include "tessara/platform/gdi/Mapping.h"

/// Every operation that leaves marks on a surface, once: name, parameters, the parameters' names. Sinks, the
/// log and the tests are generated from this table, so that none is forgotten. All coordinates are logical.
#define TESSARA_DRAW_OPERATIONS(OPERATION)                                                                   \
    OPERATION(Polyline, (std::span<const POINT> points), (points))                                           \
    OPERATION(Polygon, (std::span<const POINT> points), (points))                                            \
    OPERATION(Rectangle, (const RECT& rect), (rect))                                                         \
    OPERATION(Ellipse, (const RECT& rect), (rect))                                                           \
    OPERATION(FillRect, (const RECT& rect, COLORREF color), (rect, color))                                   \
    OPERATION(FocusRect, (const RECT& rect), (rect))                                                         \
    OPERATION(Picture, (const RECT& rect, const tessara::CPixels& pixels), (rect, pixels))                   \
    OPERATION(Text, (POINT origin, std::string_view strBytes), (origin, strBytes))

namespace tessara {

/// All that a drawing operation depends on besides its coordinates. SaveDC keeps copies of it.
///
/// The object pointers name what was selected; drawing uses the copies beside them.
struct TESSARA_API CDrawState {
    CDrawState();

    CMapping mapping;
    CPen* pPen;
    CBrush* pBrush;
    CFont* pFont;
    LOGPEN pen;
    LOGBRUSH brush;
    LOGFONT font;
    CBitmap* pBitmap = nullptr;
    std::shared_ptr<const CPixels> pPixels; ///< of the bitmap, that BitBlt copies from
    COLORREF textColor = 0x000000;
    COLORREF backColor = 0xFFFFFF;
    int nBackMode;
    int nRasterOperation;
    POINT position{0, 0};
};

/// What a device says of itself.
struct CDeviceCaps {
    double dDotsPerInchX = 96;
    double dDotsPerInchY = 96;
    SIZE size{0, 0};        ///< pixels
    int nColors = 1 << 24;  ///< 2 for black and white
    bool bPrinting = false; ///< the surface is a printer, not a window or a picture
    bool bBounded = true;   ///< nothing is drawn beyond the size; a recorded picture has no end
};

/// Where drawing ends: one device or picture. A sink keeps no drawing state of its own; each operation brings
/// it.
class CDrawSink {
public:
    virtual ~CDrawSink() = default;
    virtual CDeviceCaps GetCaps() const = 0;
    /// The colour of a device pixel, or CLR_INVALID where nothing can be read.
    virtual COLORREF ReadPixel(POINT device) const = 0;

#define TESSARA_DECLARE_OPERATION(name, parameters, names)                                                   \
    virtual void name(const CDrawState& state, TESSARA_UNWRAP parameters) = 0;
#define TESSARA_UNWRAP(...) __VA_ARGS__
    TESSARA_DRAW_OPERATIONS(TESSARA_DECLARE_OPERATION)
#undef TESSARA_DECLARE_OPERATION

    /// Draws an open line in dashes, where the device has dash patterns of its own; lengths of dashes and
    /// gaps in turn are logical. Elsewhere draws nothing and returns false: who wants dashes there cuts the
    /// line. Not in the table: it looks as the cut line does, and a sink may do without.
    virtual bool DashedPolyline(const CDrawState& /*state*/, std::span<const POINT> /*points*/,
                                std::span<const double> /*lengths*/) {
        return false;
    }
};

/// In a sink: declares the override of every operation.
#define TESSARA_OVERRIDE_OPERATION(name, parameters, names)                                                  \
    void name(const tessara::CDrawState& state, TESSARA_UNWRAP parameters) override;

} // namespace tessara
