#include "cli/view/ViewerZoom.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

#include "cli/view/ViewerResources.h"
#include "cli/view/ZoomRange.h"
#include "tessara/platform/ui/frames/CmdUI.h"

namespace tessara {

namespace {

constexpr double PAN_PART = 0.1;

CZoomWindow WindowOf(const CPixelMap& map) {
    return {map.dXUpper, map.dXLower, map.dYUpper, map.dYLower};
}

int Clamped(int nValue, int nFirst, int nLast) {
    return std::max(nFirst, std::min(nValue, nLast));
}

} // namespace

void CViewerZoom::SetPlot(CShownPlot* pPlot, bool bKeepHistory) {
    m_pPlot = pPlot;
    m_nJoined = 0;
    ForgetWhole();
    if (!bKeepHistory) {
        m_history = CZoomHistory(pPlot ? pPlot->GetZoom() : std::nullopt);
    }
}

CPixelMap CViewerZoom::GetMap() const {
    m_view.UpdateWindow();
    return m_pPlot ? m_pPlot->GetPixelMap() : CPixelMap();
}

CZoomWindow CViewerZoom::GetShown() const {
    return m_pPlot->GetZoom().value_or(WindowOf(GetMap()));
}

/// Where the axes of the whole plot end is known once it is painted; the view shows the zoom again before
/// anybody sees it.
const CZoomWindow& CViewerZoom::GetWhole() {
    const CZoomState zoom = m_pPlot->GetZoom();
    if (zoom && !m_whole) {
        Show(std::nullopt);
        m_whole = WindowOf(GetMap());
        Show(zoom);
    } else if (!zoom) {
        m_whole = WindowOf(GetMap());
    }
    return *m_whole;
}

void CViewerZoom::Show(const CZoomState& state) {
    m_pPlot->SetZoom(state);
    m_view.Invalidate();
}

void CViewerZoom::ShowNext(const CZoomState& state, bool bJoin) {
    if (bJoin) {
        m_history.Replace(state);
    } else {
        m_history.Add(state);
        m_nJoined = 0;
    }
    Show(state);
}

void CViewerZoom::ZoomAt(double dX, double dY, double dFactor, bool bJoin) {
    const CZoomWindow whole = GetWhole();
    const CZoomState next = CZoomRange(GetShown(), whole).Scaled(dX, dY, dFactor);
    if (next != m_pPlot->GetZoom()) {
        ShowNext(next, bJoin);
    }
}

void CViewerZoom::ZoomCentre(double dFactor) {
    const CZoomWindow shown = GetShown();
    ZoomAt(shown.dXMin + (shown.dXMax - shown.dXMin) / 2, shown.dYMin + (shown.dYMax - shown.dYMin) / 2,
           dFactor, false);
}

void CViewerZoom::Turn(CPoint at, int nDelta) {
    const CPixelMap map = GetMap();
    if (!m_pPlot || nDelta == 0 || map.rect.IsRectEmpty()) {
        return;
    }
    const bool bPart = std::abs(nDelta) < WHEEL_DELTA;
    const bool bJoin = bPart && m_nJoined > 0 && m_nJoined < WHEEL_DELTA;
    const int nJoined = bPart ? (bJoin ? m_nJoined : 0) + std::abs(nDelta) : 0;
    ZoomAt(map.GetX(Clamped(at.x, map.rect.left, map.rect.right)),
           map.GetY(Clamped(at.y, map.rect.top, map.rect.bottom)),
           std::pow(STEP_FACTOR, -static_cast<double>(nDelta) / WHEEL_DELTA), bJoin);
    m_nJoined = nJoined;
}

void CViewerZoom::Pan(double dRight, double dUp) {
    if (!IsZoomed()) {
        return;
    }
    const CZoomWindow whole = GetWhole();
    const CZoomState next = CZoomRange(GetShown(), whole).Moved(dRight, dUp);
    if (next != m_pPlot->GetZoom()) {
        ShowNext(next);
    }
}

void CViewerZoom::FollowPlot() {
    if (m_pPlot && m_pPlot->GetZoom() != m_history.GetPresent()) {
        ShowNext(m_pPlot->GetZoom());
    }
}

void CViewerZoom::Restore(const CZoomState& state) {
    if (!m_pPlot) {
        return;
    }
    Show(std::nullopt);
    const CZoomWindow whole = GetWhole();
    if (state && CZoomRange(whole, whole).Meets(*state)) {
        Show(state);
    }
    m_history.Add(m_pPlot->GetZoom());
}

void CViewerZoom::OnZoomArea() {
    m_pPlot->EnableZoomInMode(!m_pPlot->IsZoomInModeEnabled());
}

void CViewerZoom::OnBack() {
    m_nJoined = 0;
    Show(m_history.GoBack());
}

void CViewerZoom::OnForward() {
    m_nJoined = 0;
    Show(m_history.GoForward());
}

void CViewerZoom::OnPan(UINT nID) {
    Pan(nID == ID_PAN_LEFT    ? -PAN_PART
        : nID == ID_PAN_RIGHT ? PAN_PART
                              : 0,
        nID == ID_PAN_DOWN ? -PAN_PART
        : nID == ID_PAN_UP ? PAN_PART
                           : 0);
}

void CViewerZoom::OnUpdateZoomArea(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot != nullptr);
    pCmdUI->SetCheck(m_pPlot && m_pPlot->IsZoomInModeEnabled());
}

void CViewerZoom::OnUpdateZoomIn(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot != nullptr);
}

void CViewerZoom::OnUpdateZoomed(CCmdUI* pCmdUI) {
    pCmdUI->Enable(IsZoomed());
}

void CViewerZoom::OnUpdateBack(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot && m_history.CanGoBack());
}

void CViewerZoom::OnUpdateForward(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot && m_history.CanGoForward());
}

BEGIN_MESSAGE_MAP(CViewerZoom, CCmdTarget)
ON_COMMAND(ID_ZOOM_AREA, OnZoomArea)
ON_COMMAND(ID_ZOOM_IN, OnZoomIn)
ON_COMMAND(ID_ZOOM_OUT, OnZoomOut)
ON_COMMAND(ID_ZOOM_BACK, OnBack)
ON_COMMAND(ID_ZOOM_FORWARD, OnForward)
ON_COMMAND(ID_ZOOM_WHOLE, OnWhole)
ON_COMMAND_RANGE(ID_PAN_LEFT, ID_PAN_DOWN, OnPan)
ON_UPDATE_COMMAND_UI(ID_ZOOM_AREA, OnUpdateZoomArea)
ON_UPDATE_COMMAND_UI(ID_ZOOM_IN, OnUpdateZoomIn)
ON_UPDATE_COMMAND_UI(ID_ZOOM_OUT, OnUpdateZoomed)
ON_UPDATE_COMMAND_UI(ID_ZOOM_BACK, OnUpdateBack)
ON_UPDATE_COMMAND_UI(ID_ZOOM_FORWARD, OnUpdateForward)
ON_UPDATE_COMMAND_UI(ID_ZOOM_WHOLE, OnUpdateZoomed)
ON_UPDATE_COMMAND_UI_RANGE(ID_PAN_LEFT, ID_PAN_DOWN, OnUpdateZoomed)
END_MESSAGE_MAP()

} // namespace tessara
