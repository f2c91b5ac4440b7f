#include "tessara/phasediagram/CrossSectionDialog.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/ui/windows/Pointer.h"
#include "tessara/plot/LibraryCursors.h"
#include "tessara/plot/PageDC.h"

// What the mouse does in a diagram: zooming, and picking elements by the colour of a pixel.

void CPhaseDiagramOutput::OnLButtonDown(POINT pt, CWnd* pWnd) {
    if (m_bZoomInMode && m_Drag.Begin(pt, m_rcPlotDevice, *pWnd)) {
        return;
    }
    constexpr DWORD READY = MF_READOUT | MF_OVERELEMENT;
    if (m_rcPlotDevice.PtInRect(pt) && (m_nFlags & READY) == READY) {
        const tessara::CPixelMap map = GetPixelMap();
        PickPoint(map.GetX(pt.x), map.GetY(pt.y), CClientDC(pWnd).GetPixel(pt.x, pt.y));
    }
}

void CPhaseDiagramOutput::OnMouseMove(POINT pt, CWnd* pWnd) {
    const BOOL bInside = m_rcPlotDevice.PtInRect(pt);
    if (m_bZoomInMode) {
        m_bCursorInside = bInside;
        if (bInside) {
            m_Drag.Move(pt);
        }
        return;
    }
    if (!bInside || !(m_nFlags & MF_READOUT)) {
        return;
    }
    if (!IsValidColor(CClientDC(pWnd).GetPixel(pt.x, pt.y))) {
        m_nFlags &= ~DWORD{MF_OVERELEMENT};
        return;
    }
    SetCursor(LoadCursor(IDC_CROSS));
    m_nFlags |= MF_OVERELEMENT;
}

void CPhaseDiagramOutput::OnLButtonUp(POINT pt, CWnd*) {
    if (!m_bZoomInMode || !m_Drag.IsUnderWay()) {
        return;
    }
    m_bZoomInMode = 0; // each time serves one drag
    if (const auto corners = m_Drag.End(pt)) {
        const tessara::CPixelMap map(m_rcExactPlotDevice, m_AbscissaScale, m_OrdinateScale);
        ZoomTo(map.GetWindow(corners->first, corners->second));
        InvalidateParent();
    }
}

int CPhaseDiagramOutput::OnSetCursor(CWnd*, unsigned int, unsigned int) {
    if (!m_bZoomInMode) {
        return 0;
    }
    SetCursor(LoadCursor(m_bCursorInside ? CURSOR_ZOOM : CURSOR_NO_ZOOM));
    return 1;
}

void CPhaseDiagramOutput::EnableZoomInMode(int bEnable) {
    m_bZoomInMode = bEnable;
    if (!bEnable) {
        m_Drag.Cancel();
        ShowWhole();
        InvalidateParent();
    }
}

void CPhaseDiagramOutput::DrawZoomTrackingRect(POINT a, POINT b) {
    if (m_pParentWnd) {
        tessara::CZoomDrag::InvertRectangle(*m_pParentWnd, a, b);
    }
}

/// A colour that no element has leaves the element that was picked before.
void CPhaseDiagramOutput::PickPoint(double dX, double dY, DWORD crElement) {
    if (!(m_nFlags & MF_READOUT)) {
        return;
    }
    if (IsValidColor(crElement)) {
        m_crSelected = crElement;
    }
    if (!m_bElementReadOut) {
        ListPoint(dX, dY);
    } else if (const int nElement = ElementFromColor(crElement); nElement != -1) {
        ListElement(nElement, dX, dY);
    }
    RemoveMark();
    m_dMarkX = dX;
    m_dMarkY = dY;
    m_bMarkOutdated = false;
    m_nFlags |= MF_MARKSHOWN;
    DrawMark();
}

void CPhaseDiagramOutput::DrawMark() {
    if (!m_pParentWnd) {
        return;
    }
    tessara::CPageDC dc(m_pParentWnd);
    DrawMarkOnDC(&dc);
}

void CPhaseDiagramOutput::RemoveMark() {
    if (m_nFlags & MF_MARKSHOWN) {
        DrawMark();
    }
    m_nFlags &= ~DWORD{MF_MARKSHOWN};
}

void CPhaseDiagramOutput::HideMark() {
    RemoveMark();
    m_nFlags &= ~DWORD{MF_READOUT};
    InvalidateParent();
}

/// Painting has erased the mark on the screen; pictures and paper have none.
void CPhaseDiagramOutput::DrawMarkAgain(CDC* pDC, const CMetaFileDC* pMetaDC) {
    if (pMetaDC || pDC->IsPrinting() || !(m_nFlags & MF_MARKSHOWN)) {
        return;
    }
    if (IsAnyReadOutVisible() && !m_bMarkOutdated) {
        DrawMarkOnDC(pDC);
    } else if (pDC->IsKindOf(RUNTIME_CLASS(CClientDC))) {
        m_nFlags &= ~DWORD{MF_MARKSHOWN};
        m_bMarkOutdated = false;
    }
}

void CPhaseDiagramOutput::InvalidateParent() {
    if (m_pParentWnd) {
        m_pParentWnd->Invalidate();
    }
}
