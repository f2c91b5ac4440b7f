#include "tessara/platform/gdi/DC.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/base/NoTraps.h"
#include "tessara/platform/gdi/DrawSink.h"
#include "tessara/platform/gdi/TextMeasure.h"

IMPLEMENT_DYNAMIC(CDC, CObject)

using tessara::CDrawSink;
using tessara::CDrawState;

namespace {

/// Hands an operation to a sink, if there is one. What happens there, in Qt for example, is not to trap a
/// program that has its floating-point traps on.
template <class OPERATION>
void Draw(CDrawSink* pSink, OPERATION operation) {
    if (pSink) {
        const tessara::CNoTraps noTraps;
        tessara::WithMemoryException([&] { operation(*pSink); });
    }
}

} // namespace

tessara::CDrawState::CDrawState()
    : pPen(static_cast<CPen*>(GetStockObject(BLACK_PEN))),
      pBrush(static_cast<CBrush*>(GetStockObject(WHITE_BRUSH))),
      pFont(static_cast<CFont*>(GetStockObject(SYSTEM_FONT))), pen(pPen->GetLogPen()),
      brush(pBrush->GetLogBrush()), font(pFont->GetLogFont()), nBackMode(OPAQUE),
      nRasterOperation(R2_COPYPEN) {}

CDC::CDC() : m_pState(std::make_unique<CDrawState>()) {}

CDC::CDC(std::unique_ptr<CDrawSink> pSink) : CDC() {
    Attach(std::move(pSink));
}

CDC::~CDC() = default;

void CDC::Attach(std::unique_ptr<CDrawSink> pSink) {
    m_pSink = std::move(pSink);
    const tessara::CDeviceCaps caps = m_pSink->GetCaps();
    *m_pState = CDrawState();
    m_pState->mapping = tessara::CMapping(caps.dDotsPerInchX, caps.dDotsPerInchY);
    m_saved.clear();
}

std::unique_ptr<CDrawSink> CDC::Detach() {
    return std::move(m_pSink);
}

int CDC::SaveDC() {
    tessara::WithMemoryException([&] { m_saved.push_back(*m_pState); });
    return static_cast<int>(m_saved.size());
}

BOOL CDC::RestoreDC(int nSaved) {
    const int nCount = static_cast<int>(m_saved.size());
    const int nLevel = nSaved < 0 ? nCount + 1 + nSaved : nSaved;
    if (nLevel < 1 || nLevel > nCount) {
        return FALSE;
    }
    const std::size_t nIndex = static_cast<std::size_t>(nLevel - 1);
    *m_pState = m_saved[nIndex];
    m_saved.erase(m_saved.begin() + static_cast<std::ptrdiff_t>(nIndex), m_saved.end());
    return TRUE;
}

BOOL CDC::IsPrinting() const {
    return m_pSink && m_pSink->GetCaps().bPrinting;
}

int CDC::GetDeviceCaps(int nIndex) const {
    constexpr double MILLIMETRES_PER_INCH = 25.4;
    const tessara::CDeviceCaps caps = m_pSink ? m_pSink->GetCaps() : tessara::CDeviceCaps();
    switch (nIndex) {
    case LOGPIXELSX:
        return static_cast<int>(std::lround(caps.dDotsPerInchX));
    case LOGPIXELSY:
        return static_cast<int>(std::lround(caps.dDotsPerInchY));
    case HORZRES:
        return caps.size.cx;
    case VERTRES:
        return caps.size.cy;
    case HORZSIZE:
        return static_cast<int>(std::lround(caps.size.cx / caps.dDotsPerInchX * MILLIMETRES_PER_INCH));
    case VERTSIZE:
        return static_cast<int>(std::lround(caps.size.cy / caps.dDotsPerInchY * MILLIMETRES_PER_INCH));
    case NUMCOLORS:
        return caps.nColors;
    default:
        return 0;
    }
}

int CDC::GetClipBox(RECT* pBox) const {
    const tessara::CDeviceCaps caps = m_pSink ? m_pSink->GetCaps() : tessara::CDeviceCaps();
    CRect box(0, 0, caps.size.cx, caps.size.cy);
    if (!m_pSink || !caps.bBounded || box.IsRectEmpty()) {
        *pBox = {0, 0, 0, 0};
        return m_pSink && caps.bBounded ? NULLREGION : 0;
    }
    DPtoLP(&box);
    box.NormalizeRect();
    *pBox = box;
    return SIMPLEREGION;
}

CPen* CDC::SelectObject(CPen* pPen) {
    if (!pPen) {
        return nullptr;
    }
    m_pState->pen = pPen->GetLogPen();
    return std::exchange(m_pState->pPen, pPen);
}

CBrush* CDC::SelectObject(CBrush* pBrush) {
    if (!pBrush) {
        return nullptr;
    }
    m_pState->brush = pBrush->GetLogBrush();
    return std::exchange(m_pState->pBrush, pBrush);
}

CFont* CDC::SelectObject(CFont* pFont) {
    if (!pFont) {
        return nullptr;
    }
    m_pState->font = pFont->GetLogFont();
    return std::exchange(m_pState->pFont, pFont);
}

CBitmap* CDC::SelectObject(CBitmap* pBitmap) {
    if (!pBitmap) {
        return nullptr;
    }
    m_pState->pPixels = pBitmap->GetPixels();
    return std::exchange(m_pState->pBitmap, pBitmap);
}

CGdiObject* CDC::SelectObject(CGdiObject* pObject) {
    if (auto* pPen = dynamic_cast<CPen*>(pObject)) {
        return SelectObject(pPen);
    }
    if (auto* pBrush = dynamic_cast<CBrush*>(pObject)) {
        return SelectObject(pBrush);
    }
    if (auto* pBitmap = dynamic_cast<CBitmap*>(pObject)) {
        return SelectObject(pBitmap);
    }
    return SelectObject(dynamic_cast<CFont*>(pObject));
}

CGdiObject* CDC::SelectStockObject(int nIndex) {
    return SelectObject(tessara::GetStockObject(nIndex));
}

COLORREF CDC::SetTextColor(COLORREF color) {
    return std::exchange(m_pState->textColor, color);
}

COLORREF CDC::SetBkColor(COLORREF color) {
    return std::exchange(m_pState->backColor, color);
}

int CDC::SetBkMode(int nMode) {
    return std::exchange(m_pState->nBackMode, nMode == TRANSPARENT ? TRANSPARENT : OPAQUE);
}

int CDC::SetROP2(int nMode) {
    return std::exchange(m_pState->nRasterOperation, nMode);
}

int CDC::GetROP2() const {
    return m_pState->nRasterOperation;
}

CPoint CDC::MoveTo(int nX, int nY) {
    return std::exchange(m_pState->position, POINT{nX, nY});
}

BOOL CDC::LineTo(int nX, int nY) {
    const std::array<POINT, 2> ends{m_pState->position, POINT{nX, nY}};
    m_pState->position = ends[1];
    return Polyline(ends.data(), 2);
}

BOOL CDC::Polyline(const POINT* pPoints, int nCount) {
    if (nCount < 1) {
        return FALSE;
    }
    Draw(m_pSink.get(), [&](CDrawSink& sink) {
        sink.Polyline(*m_pState, {pPoints, static_cast<std::size_t>(nCount)});
    });
    return TRUE;
}

BOOL CDC::Polygon(const POINT* pPoints, int nCount) {
    if (nCount < 2) {
        return FALSE;
    }
    Draw(m_pSink.get(), [&](CDrawSink& sink) {
        sink.Polygon(*m_pState, {pPoints, static_cast<std::size_t>(nCount)});
    });
    return TRUE;
}

BOOL CDC::Rectangle(int nLeft, int nTop, int nRight, int nBottom) {
    Draw(m_pSink.get(), [&](CDrawSink& sink) { sink.Rectangle(*m_pState, {nLeft, nTop, nRight, nBottom}); });
    return TRUE;
}

BOOL CDC::Rectangle(const RECT* pRect) {
    return Rectangle(pRect->left, pRect->top, pRect->right, pRect->bottom);
}

BOOL CDC::Ellipse(int nLeft, int nTop, int nRight, int nBottom) {
    Draw(m_pSink.get(), [&](CDrawSink& sink) { sink.Ellipse(*m_pState, {nLeft, nTop, nRight, nBottom}); });
    return TRUE;
}

BOOL CDC::Ellipse(const RECT* pRect) {
    return Ellipse(pRect->left, pRect->top, pRect->right, pRect->bottom);
}

void CDC::FillRect(const RECT* pRect, CBrush* pBrush) {
    const LOGBRUSH& brush = pBrush->GetLogBrush();
    if (brush.lbStyle != BS_NULL) {
        Draw(m_pSink.get(), [&](CDrawSink& sink) { sink.FillRect(*m_pState, *pRect, brush.lbColor); });
    }
}

void CDC::DrawFocusRect(const RECT* pRect) {
    Draw(m_pSink.get(), [&](CDrawSink& sink) { sink.FocusRect(*m_pState, *pRect); });
}

BOOL CDC::CreateCompatibleDC(CDC*) {
    return !m_pSink;
}

BOOL CDC::BitBlt(int nX, int nY, int nWidth, int nHeight, CDC* pSource, int nSourceX, int nSourceY,
                 DWORD dwOperation) {
    const auto pPixels = pSource ? pSource->m_pState->pPixels : nullptr;
    if (!pPixels || dwOperation != SRCCOPY) {
        return FALSE;
    }
    const SIZE size = pPixels->size;
    const CRect part(std::max(nSourceX, 0), std::max(nSourceY, 0), std::min<LONG>(nSourceX + nWidth, size.cx),
                     std::min<LONG>(nSourceY + nHeight, size.cy));
    if (!part.IsRectEmpty()) {
        const CPoint origin(nX + part.left - nSourceX, nY + part.top - nSourceY);
        const CRect place(origin.x, origin.y, origin.x + part.Width(), origin.y + part.Height());
        Draw(m_pSink.get(),
             [&](CDrawSink& sink) { sink.Picture(*m_pState, place, tessara::CutOut(*pPixels, part)); });
    }
    return TRUE;
}

COLORREF CDC::GetPixel(int nX, int nY) const {
    return m_pSink ? m_pSink->ReadPixel(m_pState->mapping.ToDevice(POINT{nX, nY})) : CLR_INVALID;
}

BOOL CDC::TextOut(int nX, int nY, const char* pszText, int nCount) {
    if (nCount < 0) {
        return FALSE;
    }
    if (nCount > 0) {
        Draw(m_pSink.get(), [&](CDrawSink& sink) {
            sink.Text(*m_pState, {nX, nY}, {pszText, static_cast<std::size_t>(nCount)});
        });
    }
    return TRUE;
}

BOOL CDC::TextOut(int nX, int nY, const CString& strText) {
    return TextOut(nX, nY, strText, strText.GetLength());
}

CSize CDC::GetTextExtent(const char* pszText, int nCount) const {
    return tessara::MeasureText(m_pState->font, {pszText, nCount < 0 ? 0 : static_cast<std::size_t>(nCount)});
}

CSize CDC::GetTextExtent(const CString& strText) const {
    return GetTextExtent(strText, strText.GetLength());
}

BOOL CDC::GetTextMetrics(TEXTMETRIC* pMetrics) const {
    const LOGFONT& font = m_pState->font;
    const tessara::CFontMeasures measures = tessara::MeasureFont(font);
    *pMetrics = {measures.nLine,
                 measures.nAscent,
                 measures.nLine - measures.nAscent,
                 measures.nLine - measures.nEm,
                 0,
                 measures.nMeanWidth,
                 measures.nLargestWidth,
                 font.lfWeight,
                 font.lfItalic,
                 font.lfUnderline,
                 font.lfStrikeOut,
                 font.lfCharSet};
    return TRUE;
}
