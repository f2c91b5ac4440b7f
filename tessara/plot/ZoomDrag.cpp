#include "tessara/plot/ZoomDrag.h"

#include "tessara/platform/ui/ClientDC.h"
#include "tessara/platform/ui/MessageBox.h"
#include "tessara/platform/ui/Pointer.h"

namespace tessara {

bool CZoomDrag::Begin(CPoint point, const CRect& rcPlot, CWnd& wnd) {
    if (!rcPlot.PtInRect(point)) {
        return false;
    }
    m_pWnd = &wnd;
    m_anchor = point;
    m_last.reset();
    CRect onScreen = rcPlot;
    wnd.ClientToScreen(&onScreen);
    ClipCursor(&onScreen);
    return true;
}

void CZoomDrag::Move(CPoint point) {
    if (!m_pWnd) {
        return;
    }
    if (m_last) {
        InvertRectangle(*m_pWnd, m_anchor, *m_last);
    }
    InvertRectangle(*m_pWnd, m_anchor, point);
    m_last = point;
}

void CZoomDrag::Cancel() {
    if (!m_pWnd) {
        return;
    }
    if (m_last) {
        InvertRectangle(*m_pWnd, m_anchor, *m_last);
    }
    m_last.reset();
    m_pWnd = nullptr;
    ClipCursor(nullptr);
}

std::optional<CZoomDrag::CCorners> CZoomDrag::End(CPoint point) {
    if (!m_pWnd) {
        return std::nullopt;
    }
    Cancel();
    if (point.x == m_anchor.x || point.y == m_anchor.y) {
        AfxMessageBox("The zoom area is empty. Please try again.");
        return std::nullopt;
    }
    return CCorners(m_anchor, point);
}

void CZoomDrag::InvertRectangle(CWnd& wnd, POINT a, POINT b) {
    CClientDC dc(&wnd);
    const int nOldMode = dc.SetROP2(R2_NOTXORPEN);
    CRect rect(a, b);
    rect.NormalizeRect();
    dc.DrawFocusRect(&rect);
    dc.SetROP2(nOldMode);
}

} // namespace tessara
