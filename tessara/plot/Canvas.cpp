#include "tessara/plot/Canvas.h"

namespace tessara {

void CCanvas::Line(int nX1, int nY1, int nX2, int nY2) const {
    for (CDC* pDC : {m_pDC, m_pPicture}) {
        if (pDC) {
            pDC->MoveTo(nX1, nY1);
            pDC->LineTo(nX2, nY2);
        }
    }
}

void CCanvas::Polygon(std::span<const POINT> points) const {
    for (CDC* pDC : {m_pDC, m_pPicture}) {
        if (pDC) {
            pDC->Polygon(points.data(), static_cast<int>(points.size()));
        }
    }
}

void CCanvas::Rectangle(const RECT& rect) const {
    for (CDC* pDC : {m_pDC, m_pPicture}) {
        if (pDC) {
            pDC->Rectangle(&rect);
        }
    }
}

void CCanvas::Ellipse(const RECT& rect) const {
    for (CDC* pDC : {m_pDC, m_pPicture}) {
        if (pDC) {
            pDC->Ellipse(&rect);
        }
    }
}

void CCanvas::Text(int nX, int nY, std::string_view strText) const {
    for (CDC* pDC : {m_pDC, m_pPicture}) {
        if (pDC) {
            pDC->TextOut(nX, nY, strText.data(), static_cast<int>(strText.size()));
        }
    }
}

CSize CCanvas::Measure(std::string_view strText) const {
    return m_pDC->GetTextExtent(strText.data(), static_cast<int>(strText.size()));
}

CSelection::CSelection(const CCanvas& canvas, CGdiObject& object)
    : m_canvas(canvas), m_pOld(canvas.GetSurface().SelectObject(&object)),
      m_pOldInPicture(canvas.GetPicture() ? canvas.GetPicture()->SelectObject(&object) : nullptr) {}

CSelection::CSelection(const CCanvas& canvas, StockObject eObject)
    : CSelection(canvas, *GetStockObject(eObject)) {}

CSelection::~CSelection() {
    m_canvas.GetSurface().SelectObject(m_pOld);
    if (m_canvas.GetPicture()) {
        m_canvas.GetPicture()->SelectObject(m_pOldInPicture);
    }
}

} // namespace tessara
