#include "tessara/plot/ZoomDrag.h"

#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/Pointer.h"

namespace tessara {

namespace {

void Invert(CDC& dc, POINT a, POINT b) {
    const int nOldMode = dc.SetROP2(R2_NOTXORPEN);
    CRect rect(a, b);
    rect.NormalizeRect();
    dc.DrawFocusRect(&rect);
    dc.SetROP2(nOldMode);
}

} // namespace

bool CZoomDrag::Begin(CPoint point, const CRect& rcPlot, CWnd& wnd) {
    if (!rcPlot.PtInRect(point)) {
        return false;
    }
    m_hWnd = wnd.m_hWnd;
    m_anchor = point;
    m_last.reset();
    CRect onScreen = rcPlot;
    wnd.ClientToScreen(&onScreen);
    ClipCursor(&onScreen);
    return true;
}

void CZoomDrag::Move(CPoint point) {
    if (!m_hWnd) {
        return;
    }
    InvertLast();
    m_last = point;
    InvertLast();
}

/// The window may have gone.
void CZoomDrag::InvertLast() const {
    CWnd* const pWnd = CWnd::FromHandle(m_hWnd);
    if (pWnd && m_last) {
        InvertRectangle(*pWnd, m_anchor, *m_last);
    }
}

void CZoomDrag::OnPaint(CDC& dc) const {
    if (m_hWnd && m_last && dc.IsKindOf(RUNTIME_CLASS(CClientDC))) {
        Invert(dc, m_anchor, *m_last);
    }
}

void CZoomDrag::Cancel() {
    if (!m_hWnd) {
        return;
    }
    InvertLast();
    m_last.reset();
    m_hWnd = nullptr;
    ClipCursor(nullptr);
}

std::optional<CZoomDrag::CCorners> CZoomDrag::End(CPoint point) {
    if (!m_hWnd) {
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
    Invert(dc, a, b);
}

} // namespace tessara
