#include "cli/view/ViewerPlotCommands.h"

#include "cli/view/ScaleDialog.h"
#include "cli/view/ViewerResources.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/windows/WaitCursor.h"

namespace tessara {

namespace {

constexpr EPlotSwitch SWITCHES[] = {EPlotSwitch::multiphasePoints, EPlotSwitch::legend, EPlotSwitch::caption,
                                    EPlotSwitch::monochrome};
constexpr EWalk WALKS[] = {EWalk::back, EWalk::forward, EWalk::previousCurve, EWalk::nextCurve};
constexpr UINT PANS[] = {ID_PAN_LEFT, ID_PAN_RIGHT, ID_PAN_UP, ID_PAN_DOWN};

} // namespace

bool CViewerPlotCommands::IsReadingOut() const {
    return m_pPlot && m_pPlot->GetReadOut();
}

void CViewerPlotCommands::OnSwitch(UINT nID) {
    const CWaitCursor wait; // points where curves cross may take long to find
    m_pPlot->Toggle(SWITCHES[nID - ID_SWITCH_FIRST]);
    m_zoom.ForgetWhole();
    m_view.Invalidate();
}

void CViewerPlotCommands::OnUpdateSwitch(CCmdUI* pCmdUI) {
    const EPlotSwitch eSwitch = SWITCHES[pCmdUI->m_nID - ID_SWITCH_FIRST];
    pCmdUI->Enable(m_pPlot && m_pPlot->Has(eSwitch));
    pCmdUI->SetCheck(m_pPlot && m_pPlot->Has(eSwitch) && m_pPlot->IsOn(eSwitch));
}

void CViewerPlotCommands::OnReadOut(UINT nID) {
    const EReadOut eReadOut = READ_OUTS[nID - ID_READ_FIRST];
    m_pPlot->ShowReadOut(eReadOut, !m_pPlot->IsReadOutVisible(eReadOut));
}

void CViewerPlotCommands::OnUpdateReadOut(CCmdUI* pCmdUI) {
    const EReadOut eReadOut = READ_OUTS[pCmdUI->m_nID - ID_READ_FIRST];
    pCmdUI->Enable(m_pPlot && m_pPlot->Offers(eReadOut));
    pCmdUI->SetCheck(m_pPlot && m_pPlot->IsReadOutVisible(eReadOut));
}

/// The plot may have been replaced while the dialog was open: the present one is asked.
void CViewerPlotCommands::SetScales(const CAxisScales& scales) {
    if (m_pPlot) {
        m_pPlot->SetScales(scales);
        m_zoom.ForgetWhole();
        m_zoom.FollowPlot();
        m_view.Invalidate();
    }
}

void CViewerPlotCommands::OnScales() {
    CScaleDialog(m_view.GetParent(), m_pPlot->GetScales(), m_zoom.GetMap(),
                 [this](const CAxisScales& scales) { SetScales(scales); })
        .DoModal();
}

void CViewerPlotCommands::OnUpdateScales(CCmdUI* pCmdUI) {
    pCmdUI->Enable(m_pPlot != nullptr);
}

/// The arrow keys walk where a read-out follows the mark, and else move what is shown.
void CViewerPlotCommands::OnArrow(UINT nID) {
    const UINT nArrow = nID - ID_ARROW_LEFT;
    if (IsReadingOut()) {
        m_pPlot->Walk(WALKS[nArrow]);
    } else {
        m_zoom.OnCmdMsg(PANS[nArrow], CN_COMMAND, nullptr);
    }
}

void CViewerPlotCommands::OnUpdateArrow(CCmdUI* pCmdUI) {
    pCmdUI->Enable(IsReadingOut() || m_zoom.IsZoomed());
}

BEGIN_MESSAGE_MAP(CViewerPlotCommands, CCmdTarget)
ON_COMMAND_RANGE(ID_SWITCH_FIRST, ID_SWITCH_LAST, OnSwitch)
ON_COMMAND_RANGE(ID_READ_FIRST, ID_READ_LAST, OnReadOut)
ON_COMMAND(ID_VIEW_SCALES, OnScales)
ON_COMMAND_RANGE(ID_ARROW_LEFT, ID_ARROW_DOWN, OnArrow)
ON_UPDATE_COMMAND_UI_RANGE(ID_SWITCH_FIRST, ID_SWITCH_LAST, OnUpdateSwitch)
ON_UPDATE_COMMAND_UI_RANGE(ID_READ_FIRST, ID_READ_LAST, OnUpdateReadOut)
ON_UPDATE_COMMAND_UI(ID_VIEW_SCALES, OnUpdateScales)
ON_UPDATE_COMMAND_UI_RANGE(ID_ARROW_LEFT, ID_ARROW_DOWN, OnUpdateArrow)
END_MESSAGE_MAP()

} // namespace tessara
