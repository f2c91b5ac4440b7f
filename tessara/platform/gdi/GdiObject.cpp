#include "tessara/platform/gdi/GdiObject.h"

#include <cstring>

#include "tessara/platform/base/Text.h"

IMPLEMENT_DYNAMIC(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)

BOOL CGdiObject::DeleteObject() {
    const bool bWasCreated = m_bCreated;
    m_bCreated = false;
    return bWasCreated;
}

BOOL CPen::CreatePen(int nStyle, int nWidth, COLORREF color) {
    const LOGPEN pen{static_cast<UINT>(nStyle), {nWidth, 0}, color};
    return CreatePenIndirect(&pen);
}

BOOL CPen::CreatePenIndirect(const LOGPEN* pLogPen) {
    if (pLogPen->lopnStyle > PS_NULL) {
        return FALSE;
    }
    m_pen = *pLogPen;
    m_pen.lopnWidth.x = m_pen.lopnWidth.x < 0 ? 0 : m_pen.lopnWidth.x;
    m_bCreated = true;
    return TRUE;
}

BOOL CBrush::CreateSolidBrush(COLORREF color) {
    const LOGBRUSH brush{BS_SOLID, color, 0};
    return CreateBrushIndirect(&brush);
}

BOOL CBrush::CreateBrushIndirect(const LOGBRUSH* pLogBrush) {
    if (pLogBrush->lbStyle > BS_NULL) {
        return FALSE;
    }
    m_brush = *pLogBrush;
    m_bCreated = true;
    return TRUE;
}

CFont::CFont() : m_font(tessara::MakeLogFont(0, "")) {}

BOOL CFont::CreateFontIndirect(const LOGFONT* pLogFont) {
    m_font = *pLogFont;
    m_font.lfFaceName[LF_FACESIZE - 1] = '\0';
    m_bCreated = true;
    return TRUE;
}

namespace tessara {

LOGFONT MakeLogFont(LONG nHeight, const char* pszFace) {
    LOGFONT font;
    std::memset(&font, 0, sizeof(font));
    font.lfHeight = nHeight;
    const std::string_view strFace = CutText(pszFace, LF_FACESIZE - 1);
    std::memcpy(font.lfFaceName, strFace.data(), strFace.size());
    return font;
}

namespace {

template <UINT STYLE, COLORREF COLOR>
CGdiObject* StockPen() {
    static CPen s_pen(STYLE, 0, COLOR);
    return &s_pen;
}

template <UINT STYLE, COLORREF COLOR>
CGdiObject* StockBrush() {
    static CBrush s_brush;
    static const LOGBRUSH s_log{STYLE, COLOR, 0};
    static const BOOL s_bCreated = s_brush.CreateBrushIndirect(&s_log);
    return s_bCreated ? &s_brush : nullptr;
}

CGdiObject* StockFont() {
    static CFont s_font;
    static const LOGFONT s_log = MakeLogFont(16, "MS Sans Serif");
    static const BOOL s_bCreated = s_font.CreateFontIndirect(&s_log);
    return s_bCreated ? &s_font : nullptr;
}

} // namespace

CGdiObject* GetStockObject(int nIndex) {
    switch (nIndex) {
    case WHITE_BRUSH:
        return StockBrush<BS_SOLID, 0xFFFFFF>();
    case LTGRAY_BRUSH:
        return StockBrush<BS_SOLID, 0xC0C0C0>();
    case GRAY_BRUSH:
        return StockBrush<BS_SOLID, 0x808080>();
    case DKGRAY_BRUSH:
        return StockBrush<BS_SOLID, 0x404040>();
    case BLACK_BRUSH:
        return StockBrush<BS_SOLID, 0x000000>();
    case NULL_BRUSH:
        return StockBrush<BS_NULL, 0x000000>();
    case WHITE_PEN:
        return StockPen<PS_SOLID, 0xFFFFFF>();
    case BLACK_PEN:
        return StockPen<PS_SOLID, 0x000000>();
    case NULL_PEN:
        return StockPen<PS_NULL, 0x000000>();
    case SYSTEM_FONT:
        return StockFont();
    default:
        return nullptr;
    }
}

} // namespace tessara
