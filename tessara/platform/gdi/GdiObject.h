#pragma once

#include "tessara/platform/base/Object.h"
#include "tessara/platform/gdi/Geometry.h"

enum PenStyle : UINT {
    PS_SOLID = 0,
    PS_DASH = 1,
    PS_DOT = 2,
    PS_DASHDOT = 3,
    PS_DASHDOTDOT = 4,
    PS_NULL = 5
};
enum BrushStyle : UINT { BS_SOLID = 0, BS_NULL = 1 };

enum StockObject : int {
    WHITE_BRUSH = 0,
    LTGRAY_BRUSH = 1,
    GRAY_BRUSH = 2,
    DKGRAY_BRUSH = 3,
    BLACK_BRUSH = 4,
    NULL_BRUSH = 5,
    HOLLOW_BRUSH = NULL_BRUSH,
    WHITE_PEN = 6,
    BLACK_PEN = 7,
    NULL_PEN = 8,
    SYSTEM_FONT = 13
};

enum FontWeight : LONG { FW_DONTCARE = 0, FW_NORMAL = 400, FW_SEMIBOLD = 600, FW_BOLD = 700 };
enum CharacterSet : BYTE { ANSI_CHARSET = 0, DEFAULT_CHARSET = 1, SYMBOL_CHARSET = 2 };

struct LOGPEN {
    UINT lopnStyle;  ///< a PenStyle
    POINT lopnWidth; ///< x: width in logical units, 0 for one device pixel; y is not used
    COLORREF lopnColor;
    friend bool operator==(const LOGPEN&, const LOGPEN&) = default;
};

struct LOGBRUSH {
    UINT lbStyle; ///< a BrushStyle
    COLORREF lbColor;
    LONG lbHatch; ///< not used
    friend bool operator==(const LOGBRUSH&, const LOGBRUSH&) = default;
};

constexpr int LF_FACESIZE = 32;

/// A font as asked for. A positive height is that of a line (ascent and descent), a negative one that of the
/// characters (the em), both in logical units; 0 is a default of 16.
struct LOGFONT {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE]; ///< zero-terminated
    friend bool operator==(const LOGFONT&, const LOGFONT&) = default;
};

/// A pen, brush or font. Surfaces keep a copy of what they draw with, so deleting an object never spoils a
/// surface; it must still be selected out before it is destroyed, since selecting hands it back.
class TESSARA_API CGdiObject : public CObject {
    DECLARE_DYNAMIC(CGdiObject)

public:
    /// Forgets what was created. Returns nonzero when there was something.
    BOOL DeleteObject();
    BOOL IsCreated() const { return m_bCreated; }

protected:
    CGdiObject() = default;
    bool m_bCreated = false;
};

class TESSARA_API CPen : public CGdiObject {
    DECLARE_DYNAMIC(CPen)

public:
    CPen() = default;
    CPen(int nStyle, int nWidth, COLORREF color) { CreatePen(nStyle, nWidth, color); }
    BOOL CreatePen(int nStyle, int nWidth, COLORREF color);
    BOOL CreatePenIndirect(const LOGPEN* pLogPen);
    const LOGPEN& GetLogPen() const { return m_pen; }

private:
    LOGPEN m_pen{PS_SOLID, {0, 0}, 0};
};

class TESSARA_API CBrush : public CGdiObject {
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    explicit CBrush(COLORREF color) { CreateSolidBrush(color); }
    BOOL CreateSolidBrush(COLORREF color);
    BOOL CreateBrushIndirect(const LOGBRUSH* pLogBrush);
    const LOGBRUSH& GetLogBrush() const { return m_brush; }
    /// The brush as handlers of WM_CTLCOLOR return it.
    operator const CBrush*() const { return this; }

private:
    LOGBRUSH m_brush{BS_SOLID, 0xFFFFFF, 0};
};

class TESSARA_API CFont : public CGdiObject {
    DECLARE_DYNAMIC(CFont)

public:
    CFont();
    BOOL CreateFontIndirect(const LOGFONT* pLogFont);
    const LOGFONT& GetLogFont() const { return m_font; }

private:
    LOGFONT m_font;
};

namespace tessara {

/// A font description with the given height and face and every other field zero.
TESSARA_API LOGFONT MakeLogFont(LONG nHeight, const char* pszFace);

/// The stock object of that number, which lives as long as the program, or null.
TESSARA_API CGdiObject* GetStockObject(int nIndex);

} // namespace tessara
