#pragma once

#include <memory>
#include <span>
#include <vector>

#include "tessara/platform/base/String.h"
#include "tessara/platform/gdi/GdiObject.h"
#include "tessara/platform/gdi/Mapping.h"

enum BackgroundMode : int { TRANSPARENT = 1, OPAQUE = 2 };

/// Raster operations of pens: how the pen and the pixel under it make the new pixel.
enum RasterOperation : int {
    R2_BLACK = 1,
    R2_NOT = 6,
    R2_XORPEN = 7,
    R2_NOTXORPEN = 10, ///< drawing the same line twice restores what was there
    R2_NOP = 11,
    R2_COPYPEN = 13,
    R2_WHITE = 16
};

enum DeviceCapability : int {
    HORZSIZE = 4,    ///< width in millimetres
    VERTSIZE = 6,    ///< height in millimetres
    HORZRES = 8,     ///< width in pixels
    VERTRES = 10,    ///< height in pixels
    NUMCOLORS = 24,  ///< number of colours, 2 for black and white
    LOGPIXELSX = 88, ///< pixels per inch
    LOGPIXELSY = 90
};

/// What GetClipBox says of the part that can be drawn on.
enum RegionType : int { NULLREGION = 1, SIMPLEREGION = 2 };

/// The proportions of the selected font, in logical units.
struct TEXTMETRIC {
    LONG tmHeight;          ///< of a line, as GetTextExtent tells it: ascent and descent
    LONG tmAscent;          ///< above the base line
    LONG tmDescent;         ///< below it
    LONG tmInternalLeading; ///< how much of the height is more than the characters' own
    LONG tmExternalLeading; ///< between lines; 0: lines stand on each other
    LONG tmAveCharWidth;    ///< the mean width that the font tells of itself
    LONG tmMaxCharWidth;    ///< of the widest character that the font has
    LONG tmWeight;          ///< as asked for
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmCharSet;
};

constexpr DWORD SRCCOPY = 0x00CC0020; ///< BitBlt: the source as it is

class CBitmap;

namespace tessara {
class CDrawSink;
struct CDrawState;
} // namespace tessara

/// A drawing surface: a window, an image, a page or a recorded picture.
///
/// The surface owns the drawing state (mapping, selected objects, colours, modes) and hands each operation,
/// in logical coordinates, to the device behind it. It starts in text mode with a black one-pixel pen, a
/// white brush, black text on an opaque white background, which fills the cell of each text. Rectangles leave
/// out their right and bottom edges. Nothing fails on odd coordinates: what lies far outside the device is
/// cut off. Running out of memory throws CMemoryException; a picture that is being recorded is of no use
/// then. No operation traps a program that has its floating-point traps on.
///
/// Surfaces that are made for plots start with a transparent background instead, so that no text wipes out
/// what is drawn beside it: CImageDC, CPdfDC, CSvgDC, CPrinterDC, and those that a view's OnPrepareDC, OnDraw
/// and OnPrint are given. Who paints a plot on another (CPaintDC, CClientDC, CMetaFileDC) sets it.
///
/// A surface without a device (default-made) accepts every operation and draws nothing.
///
/// A surface belongs to one thread at a time, whichever that is; several threads may draw on surfaces of
/// their own at once, text included. Fonts are there once the main thread has made a surface or measured a
/// text: before that, and in a program whose own Qt application object has no fonts, making a surface with a
/// device and drawing or measuring text throw CGraphicsException. No display is needed to draw.
///
///     CImageDC dc(800, 575);
///     dc.MoveTo(0, 0);
///     dc.LineTo(799, 574);
class TESSARA_API CDC : public CObject {
    DECLARE_DYNAMIC(CDC)

public:
    CDC();
    /// A surface on a device of the caller's making.
    explicit CDC(std::unique_ptr<tessara::CDrawSink> pSink);
    ~CDC() override;

    // State

    /// Keeps the whole drawing state. Returns the number to restore it by, counting from 1.
    int SaveDC();
    /// Goes back to a kept state, which is forgotten together with those kept after it. Negative numbers
    /// count back from the last one. Returns zero, and changes nothing, for a number that does not exist.
    BOOL RestoreDC(int nSaved);

    int SetMapMode(int nMode); ///< returns the previous mode, or 0 for an unknown one
    int GetMapMode() const;
    BOOL SetWindowExtEx(int nWidth, int nHeight, SIZE* pPrevious = nullptr);
    BOOL SetWindowOrgEx(int nX, int nY, POINT* pPrevious = nullptr);
    BOOL SetViewportExtEx(int nWidth, int nHeight, SIZE* pPrevious = nullptr);
    BOOL SetViewportOrgEx(int nX, int nY, POINT* pPrevious = nullptr);
    CSize SetWindowExt(int nWidth, int nHeight);
    CPoint SetWindowOrg(int nX, int nY);
    CSize SetViewportExt(int nWidth, int nHeight);
    CPoint SetViewportOrg(int nX, int nY);
    CSize GetWindowExt() const;
    CSize GetViewportExt() const;

    /// Logical points to device pixels and back. Rectangles map corner by corner, sizes as lengths.
    void LPtoDP(POINT* pPoints, int nCount = 1) const;
    void LPtoDP(RECT* pRect) const;
    void LPtoDP(SIZE* pSize) const;
    void DPtoLP(POINT* pPoints, int nCount = 1) const;
    void DPtoLP(RECT* pRect) const;
    void DPtoLP(SIZE* pSize) const;

    BOOL IsPrinting() const;
    int GetDeviceCaps(int nIndex) const; ///< 0 for what is not a DeviceCapability
    /// The rectangle outside which nothing is drawn, in logical units: the whole device, since there is no
    /// other clipping; left is not beyond right, nor top beyond bottom. SIMPLEREGION, or NULLREGION and an
    /// empty rectangle where the device has no extent. Zero, and an empty rectangle, where nothing bounds the
    /// surface: on a recorded picture and without a device.
    int GetClipBox(RECT* pBox) const;

    /// Selects an object and returns the one selected before. Null selects nothing and returns null.
    CPen* SelectObject(CPen* pPen);
    CBrush* SelectObject(CBrush* pBrush);
    CFont* SelectObject(CFont* pFont);
    CBitmap* SelectObject(CBitmap* pBitmap);
    CGdiObject* SelectObject(CGdiObject* pObject);
    CGdiObject* SelectStockObject(int nIndex);

    COLORREF SetTextColor(COLORREF color);
    COLORREF SetBkColor(COLORREF color);
    int SetBkMode(int nMode);
    int SetROP2(int nMode);
    int GetROP2() const;

    // Drawing. Lines use the pen, shapes the pen and the brush.

    CPoint MoveTo(int nX, int nY);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int nX, int nY);
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    /// An open line through the points; one point is drawn as a dot.
    BOOL Polyline(const POINT* pPoints, int nCount);
    BOOL Polygon(const POINT* pPoints, int nCount);
    BOOL Rectangle(int nLeft, int nTop, int nRight, int nBottom);
    BOOL Rectangle(const RECT* pRect);
    BOOL Ellipse(int nLeft, int nTop, int nRight, int nBottom);
    BOOL Ellipse(const RECT* pRect);
    void FillRect(const RECT* pRect, CBrush* pBrush);
    /// A dotted frame; drawing it twice restores what was there.
    void DrawFocusRect(const RECT* pRect);
    COLORREF GetPixel(int nX, int nY) const;
    /// Makes this a surface in memory that a bitmap can be selected into.
    BOOL CreateCompatibleDC(CDC* pDC);
    /// Copies a part of the bitmap selected into another surface; a pixel of it is one logical unit here.
    /// Zero when there is none, or for an operation other than SRCCOPY.
    BOOL BitBlt(int nX, int nY, int nWidth, int nHeight, CDC* pSource, int nSourceX, int nSourceY,
                DWORD dwOperation);

    // Text. Bytes become characters as Text.h says; with the face "Symbol" they are in the Symbol encoding.

    /// Draws nCount bytes with the top-left of the line at the point.
    BOOL TextOut(int nX, int nY, const char* pszText, int nCount);
    BOOL TextOut(int nX, int nY, const CString& strText);
    /// Width and height of the text in the selected font, in logical units, the same on every surface.
    CSize GetTextExtent(const char* pszText, int nCount) const;
    CSize GetTextExtent(const CString& strText) const;
    /// The proportions of the selected font, measured as its texts are; nonzero.
    BOOL GetTextMetrics(TEXTMETRIC* pMetrics) const;

    // What the stippled-line service draws curves with: see tessara::CPaletteScope.

    std::span<const COLORREF> GetCurvePalette() const { return m_palette; }
    void SetCurvePalette(std::span<const COLORREF> palette) {
        m_palette.assign(palette.begin(), palette.end());
    }

    const tessara::CDrawState& GetState() const { return *m_pState; }
    tessara::CDrawSink* GetSink() const { return m_pSink.get(); }

protected:
    void Attach(std::unique_ptr<tessara::CDrawSink> pSink);
    std::unique_ptr<tessara::CDrawSink> Detach();

private:
    std::unique_ptr<tessara::CDrawSink> m_pSink;
    std::unique_ptr<tessara::CDrawState> m_pState;
    std::vector<tessara::CDrawState> m_saved;
    std::vector<COLORREF> m_palette;
};
