#include "cli/view/ViewerView.h"

#include "cli/view/ViewerFrame.h"
#include "cli/view/ViewerResources.h"
#include "cli/view/ViewerState.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/frames/Menu.h"
#include "tessara/platform/ui/windows/System.h"

namespace tessara {

IMPLEMENT_DYNCREATE(CViewerView, CView)

CViewerView::CViewerView() : m_zoom(*this), m_commands(*this, m_zoom) {}

CViewerView::~CViewerView() = default;

void CViewerView::TakePlot(std::unique_ptr<CShownPlot> pPlot, bool bKeepHistory) {
    if (m_pPlot) {
        EndDrag();
        if (const auto eReadOut = m_pPlot->GetReadOut()) {
            m_pPlot->ShowReadOut(*eReadOut, false);
        }
        m_retired.push_back(std::move(m_pPlot));
    }
    m_pPlot = std::move(pPlot);
    m_zoom.SetPlot(m_pPlot.get(), bKeepHistory);
    m_commands.SetPlot(m_pPlot.get());
    if (m_pPlot) {
        m_pPlot->Attach(this);
    }
    Invalidate();
}

/// Before the next picture is painted: the tracking rectangle is in the present one.
void CViewerView::EndDrag() {
    m_bPressed = false;
    m_pPlot->EnableZoomInMode(false);
}

void CViewerView::ForgetRetired() {
    for (const auto& pPlot : m_retired) {
        pPlot->Detach();
    }
    m_retired.clear();
}

void CViewerView::ShowPlot(std::unique_ptr<CShownPlot> pPlot) {
    TakePlot(std::move(pPlot), false);
}

void CViewerView::ReplacePlot(std::unique_ptr<CShownPlot> pPlot) {
    if (!m_pPlot) {
        ShowPlot(std::move(pPlot));
        return;
    }
    const CViewerState state(*m_pPlot);
    const bool bKeyboard = GetFocus() == this;
    state.ApplyLook(*pPlot);
    EndDrag();
    const bool bZoomInMode = pPlot->IsZoomInModeEnabled();
    if (m_pPlot->Follow(*pPlot)) {
        m_pPlot->EnableZoomInMode(bZoomInMode);
        m_zoom.SetPlot(m_pPlot.get(), true);
        Invalidate();
    } else {
        TakePlot(std::move(pPlot), true);
    }
    m_zoom.Restore(state.GetZoom());
    const bool bNewWindow = !m_pPlot->GetReadOut();
    state.ShowReadOut(*m_pPlot);
    if (bKeyboard && bNewWindow) { // which takes the keyboard
        GetTopLevelParent()->SetForegroundWindow();
        SetFocus();
    }
}

bool CViewerView::LeaveZoomInMode() {
    if (!m_pPlot || !m_pPlot->IsZoomInModeEnabled()) {
        return false;
    }
    m_pPlot->EnableZoomInMode(false);
    return true;
}

BOOL CViewerView::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    return m_zoom.OnCmdMsg(nID, nCode, pExtra) || m_commands.OnCmdMsg(nID, nCode, pExtra) ||
           CView::OnCmdMsg(nID, nCode, pExtra);
}

void CViewerView::DrawHint(CDC& dc, const RECT& rc) const {
    constexpr COLORREF FAINT = RGB(120, 120, 120); // on white paper in any palette
    const LOGFONT description = WindowFont(this);
    CFont font;
    font.CreateFontIndirect(&description);
    CFont* const pPrevious = dc.SelectObject(&font);
    const CString strHint = "Open a data file or a diagram file: Ctrl+O";
    const CSize size = dc.GetTextExtent(strHint);
    dc.SetTextColor(FAINT);
    dc.TextOut((rc.right - size.cx) / 2, (rc.bottom - size.cy) / 2, strHint);
    dc.SelectObject(pPrevious);
}

void CViewerView::Paint(CDC& dc, const RECT& rc) const {
    if (m_pPlot) {
        m_pPlot->GetDrawing().paint(dc, rc);
    } else {
        DrawHint(dc, rc);
    }
}

void CViewerView::OnDraw(CDC* pDC) {
    CRect client;
    GetClientRect(&client);
    Paint(*pDC, client);
}

BOOL CViewerView::OnPreparePrinting(CPrintInfo* pInfo) {
    pInfo->SetMaxPage(1);
    return DoPreparePrinting(pInfo);
}

void CViewerView::OnPrint(CDC* pDC, CPrintInfo* pInfo) {
    Paint(*pDC, pInfo->m_rectDraw);
}

void CViewerView::OnUpdatePrint(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot != nullptr);
}

void CViewerView::TellPoint(CPoint point) {
    const auto pFrame = dynamic_cast<CViewerFrame*>(GetParentFrame());
    if (!pFrame) {
        return;
    }
    const CPixelMap map = m_pPlot ? m_pPlot->GetPixelMap() : CPixelMap();
    const bool bInside = point.x >= map.rect.left && point.x <= map.rect.right && point.y >= map.rect.top &&
                         point.y <= map.rect.bottom && !map.rect.IsRectEmpty();
    pFrame->TellPoint(bInside ? CString(m_pPlot->DescribePoint(map.GetX(point.x), map.GetY(point.y)))
                              : CString());
}

void CViewerView::OnMouseMove(UINT, CPoint point) {
    ForgetRetired();
    if (m_pPlot) {
        m_pPlot->OnMouseMove(point);
    }
    TellPoint(point);
}

void CViewerView::OnMouseLeave() {
    TellPoint({-1, -1});
}

void CViewerView::OnLButtonDown(UINT, CPoint point) {
    ForgetRetired();
    m_bPressed = m_pPlot != nullptr;
    if (m_pPlot) {
        m_pPlot->OnLButtonDown(point);
    }
}

/// Quick clicks are single ones to the plot.
void CViewerView::OnLButtonDblClk(UINT nFlags, CPoint point) {
    OnLButtonDown(nFlags, point);
}

void CViewerView::OnLButtonUp(UINT, CPoint point) {
    if (std::exchange(m_bPressed, false)) {
        m_pPlot->OnLButtonUp(point);
        m_zoom.FollowPlot();
        TellPoint(point);
    }
}

BOOL CViewerView::OnMouseWheel(UINT, short nDelta, CPoint point) {
    ForgetRetired();
    ScreenToClient(&point);
    if (m_pPlot && !m_bPressed) {
        m_zoom.Turn(point, nDelta);
        UpdateWindow();
        TellPoint(point);
    }
    return TRUE;
}

BOOL CViewerView::OnSetCursor(CWnd* pWnd, UINT nHit, UINT nMessage) {
    return (m_pPlot && m_pPlot->OnSetCursor()) || CView::OnSetCursor(pWnd, nHit, nMessage);
}

void CViewerView::TrackContextMenu(CPoint point) {
    CMenu menu;
    menu.LoadMenu(IDR_VIEWER_CONTEXT);
    menu.GetSubMenu(0)->TrackPopupMenu(TPM_LEFTALIGN, point.x, point.y, GetParentFrame());
}

void CViewerView::OnContextMenu(CWnd*, CPoint point) {
    TrackContextMenu(point);
}

void CViewerView::OnContextMenuKey() {
    CRect client;
    GetClientRect(&client);
    ClientToScreen(&client);
    TrackContextMenu({(client.left + client.right) / 2, (client.top + client.bottom) / 2});
}

void CViewerView::OnDestroy() {
    ForgetRetired();
    if (m_pPlot) {
        m_pPlot->Detach();
    }
    m_zoom.SetPlot(nullptr, false);
    m_commands.SetPlot(nullptr);
    CView::OnDestroy();
}

BEGIN_MESSAGE_MAP(CViewerView, CView)
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_LBUTTONDBLCLK()
ON_WM_MOUSEWHEEL()
ON_WM_SETCURSOR()
ON_WM_CONTEXTMENU()
ON_WM_DESTROY()
ON_COMMAND(ID_VIEW_CONTEXT_MENU, OnContextMenuKey)
ON_COMMAND(ID_FILE_PRINT, OnPrintCommand)
ON_COMMAND(ID_FILE_PRINT_PREVIEW, OnPrintPreviewCommand)
ON_UPDATE_COMMAND_UI(ID_FILE_PRINT, OnUpdatePrint)
ON_UPDATE_COMMAND_UI(ID_FILE_PRINT_PREVIEW, OnUpdatePrint)
END_MESSAGE_MAP()

} // namespace tessara
