#include "cli/view/ViewerFrame.h"

#include <algorithm>

#include "cli/TextFile.h"
#include "cli/view/ViewerApp.h"
#include "cli/view/ViewerClipboard.h"
#include "cli/view/ViewerKeysDialog.h"
#include "cli/view/ViewerPlacement.h"
#include "cli/view/ViewerResources.h"
#include "tessara/phasediagram/PhaseDiagramOutput.h"
#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/controls/Edit.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/dialogs/FileDialog.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/windows/WaitCursor.h"

namespace tessara {

IMPLEMENT_DYNCREATE(CViewerFrame, CFrameWnd)

namespace {

constexpr UINT INDICATORS[] = {ID_SEPARATOR, IDS_VIEWER_ZOOMED};

constexpr const char* DATA_FILTER = "Data and diagram files (*.txt;*.csv;*.tsv;*.dat;*.json)|"
                                    "*.txt;*.csv;*.tsv;*.dat;*.json|All files (*.*)|*.*||";
constexpr const char* PICTURE_FILTER = "PNG picture (*.png)|*.png|SVG drawing (*.svg)|*.svg|"
                                       "PDF document (*.pdf)|*.pdf|Windows metafile (*.wmf)|*.wmf||";

/// Whether the control with the keyboard, in a window beside the frame, has a use of its own for a key.
bool NeedsKey(const CWnd* pControl, UINT nKey) {
    if (nKey >= VK_F1 && nKey <= VK_F12) {
        return false;
    }
    if (dynamic_cast<const CEdit*>(pControl) || nKey == VK_ESCAPE) {
        return true;
    }
    return dynamic_cast<const CListBox*>(pControl) && (nKey == VK_UP || nKey == VK_DOWN);
}

} // namespace

int CViewerFrame::OnCreate(LPCREATESTRUCT pCreate) {
    if (CFrameWnd::OnCreate(pCreate) == -1) {
        return -1;
    }
    const bool bBars = m_toolBar.Create(this) && m_toolBar.LoadToolBar(IDR_VIEWER) &&
                       m_statusBar.Create(this) &&
                       m_statusBar.SetIndicators(INDICATORS, std::size(INDICATORS)) && m_banner.Create(*this);
    DragAcceptFiles();
    return bBars ? 0 : -1;
}

void CViewerFrame::RecalcLayout(BOOL bNotify) {
    CFrameWnd::RecalcLayout(bNotify);
    CWnd* const pView = GetDlgItem(AFX_IDW_PANE_FIRST);
    CRect client;
    GetClientRect(&client);
    const int nHeight = IsWindow(m_banner.m_hWnd) ? m_banner.GetHeight(client.Width()) : 0;
    if (pView && nHeight > 0) {
        m_banner.Place(client.Width());
        client.top = std::min<LONG>(client.bottom, nHeight);
        pView->MoveWindow(client);
    }
}

void CViewerFrame::OnUpdateFrameTitle(BOOL) {
    const CShownPlot* const pPlot = GetPlotView().GetPlot();
    const std::string& strPath = m_source.strPath;
    const std::string strName = !strPath.empty() ? strPath.substr(strPath.rfind('/') + 1)
                                : pPlot          ? pPlot->GetName()
                                                 : "";
    SetWindowText(((strName.empty() ? "" : strName + " - ") + "Tessara").c_str());
}

void CViewerFrame::TellPoint(const CString& strPoint) {
    const CShownPlot* const pPlot = GetPlotView().GetPlot();
    const bool bZoomInMode = pPlot && pPlot->IsZoomInModeEnabled();
    if (!strPoint.IsEmpty()) {
        SetMessageText(strPoint);
    } else if (bZoomInMode) {
        SetMessageText("Drag a rectangle to enlarge it; Escape ends this");
    } else {
        SetMessageText(AFX_IDS_IDLEMESSAGE);
    }
}

void CViewerFrame::Say(const CString& strText) {
    m_banner.Say(strText);
    RecalcLayout();
}

/// Keys come here from read-out windows, too, which the view owns.
BOOL CViewerFrame::PreTranslateMessage(MSG* pMsg) {
    const CWnd* const pControl = FromHandle(pMsg->hwnd);
    const bool bInside = pControl == this || IsChild(pControl);
    FollowFocus(pControl);
    if (!bInside && NeedsKey(pControl, static_cast<UINT>(pMsg->wParam))) {
        return FALSE;
    }
    return CFrameWnd::PreTranslateMessage(pMsg);
}

bool CViewerFrame::IsSectionShown() const {
    const CShownPlot* const pPlot = GetPlotView().GetPlot();
    return pPlot && pPlot->IsReadOutVisible(EReadOut::crossSection);
}

// What is shown

void CViewerFrame::Watch(const CViewSource& source) {
    m_source = source;
    m_pWatch = std::make_unique<CFileWatch>(source.strPath.c_str(), *this, WM_FILE_CHANGED);
    OnUpdateFrameTitle(TRUE);
}

void CViewerFrame::ShowFile(const CViewSource& source, std::unique_ptr<CShownPlot> pPlot) {
    GetPlotView().ShowPlot(std::move(pPlot));
    Watch(source);
    Say("");
}

void CViewerFrame::OpenFile(const CViewSource& source) {
    try {
        const CWaitCursor wait;
        ShowFile(source, TheViewer().Open(source));
        TheViewer().AddToRecentFileList(source.strPath.c_str());
    } catch (const std::exception& error) {
        if (m_source.strPath.empty() && !GetPlotView().GetPlot()) {
            Watch(source);
        }
        Say(error.what());
    }
}

void CViewerFrame::ShowSection(std::unique_ptr<CShownPlot> pPlot) {
    GetPlotView().ShowPlot(std::move(pPlot));
    OnUpdateFrameTitle(TRUE);
}

LRESULT CViewerFrame::OnFileChanged(WPARAM, LPARAM) {
    OnReload();
    return 0;
}

LRESULT CViewerFrame::OnCrossSection(WPARAM wParam, LPARAM lParam) {
    TheViewer().OpenSection(static_cast<int>(wParam),
                            std::unique_ptr<CTable>(reinterpret_cast<CTable*>(lParam)));
    return 0;
}

// File

void CViewerFrame::OnFileOpen() {
    CFileDialog dialog(TRUE, nullptr, m_source.strPath.c_str(), OFN_HIDEREADONLY, DATA_FILTER, this);
    if (dialog.DoModal() == IDOK) {
        CViewSource source;
        source.strPath = dialog.GetPathName();
        OpenFile(source);
    }
}

/// What was shown stays when the file cannot be read.
void CViewerFrame::OnReload() {
    if (m_source.strPath.empty()) {
        return;
    }
    try {
        const CWaitCursor wait;
        GetPlotView().ReplacePlot(TheViewer().Open(m_source));
        Say("");
    } catch (const std::exception& error) {
        Say(error.what());
    }
}

void CViewerFrame::OnUpdateReload(CCmdUI* pCmdUI) {
    pCmdUI->Enable(!m_source.strPath.empty());
}

/// Beside the file, under its name.
CString CViewerFrame::ProposedPicture() const {
    const std::string& strPath = m_source.strPath;
    const std::string strName = strPath.empty() ? "section" : FileStem(strPath);
    return {strPath.substr(0, strPath.rfind('/') + 1) + strName + ".png"};
}

void CViewerFrame::OnExport() {
    CFileDialog dialog(FALSE, "png", ProposedPicture(), OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT,
                       PICTURE_FILTER, this);
    CShownPlot* const pPlot = dialog.DoModal() == IDOK ? GetPlotView().GetPlot() : nullptr;
    if (pPlot) {
        const CWaitCursor wait;
        DrawPicture(pPlot->GetDrawing(), ViewerPictureSize(), std::string(dialog.GetPathName()));
    }
}

void CViewerFrame::OnCloseWindow() {
    SendMessage(WM_CLOSE);
}

void CViewerFrame::OnClose() {
    CViewerPlacement(TheViewer()).Save(*this);
    CFrameWnd::OnClose();
}

void CViewerFrame::OnDestroy() {
    m_pWatch.reset();
    TheViewer().Forget(*this);
    CFrameWnd::OnDestroy();
}

// Edit

void CViewerFrame::OnCopy() {
    const CWaitCursor wait;
    CopyPlot(*GetPlotView().GetPlot());
}

void CViewerFrame::OnCopyValues() {
    CopyValues(*GetPlotView().GetPlot());
}

void CViewerFrame::OnUpdatePlot(CCmdUI* pCmdUI) {
    pCmdUI->Enable(GetPlotView().GetPlot() != nullptr);
}

// View

void CViewerFrame::OnFullScreen() {
    if (!IsFullScreen()) {
        CViewerPlacement(TheViewer()).Save(*this);
    }
    ShowFullScreen(!IsFullScreen());
}

void CViewerFrame::OnUpdateFullScreen(CCmdUI* pCmdUI) {
    pCmdUI->SetCheck(IsFullScreen());
}

void CViewerFrame::OnUpdateZoomed(CCmdUI* pCmdUI) {
    pCmdUI->SetText(GetPlotView().GetZoom().IsZoomed() ? "Zoomed" : "");
}

void CViewerFrame::OnLeave() {
    if (!m_banner.GetText().IsEmpty()) {
        Say("");
    } else if (!GetPlotView().LeaveZoomInMode()) {
        ShowFullScreen(FALSE);
    }
}

void CViewerFrame::FollowFocus(const CWnd* pFocus) {
    const CWnd* const pTop = pFocus ? pFocus->GetTopLevelParent() : nullptr;
    if (pTop && pTop != this && pTop->GetParent() && pTop->GetParent()->GetTopLevelParent() == this) {
        m_hReadOut = pTop->m_hWnd;
    }
}

/// The read-out that had the keyboard last and is still shown, or null.
CWnd* CViewerFrame::GetReadOut() const {
    CWnd* const pReadOut = FromHandle(m_hReadOut);
    return pReadOut && pReadOut->IsWindowVisible() ? pReadOut : nullptr;
}

void CViewerFrame::OnNextWindow() {
    const CWnd* const pFocus = GetFocus();
    CWnd* const pReadOut = GetReadOut();
    if (pReadOut && pFocus && pFocus->GetTopLevelParent() == this) {
        pReadOut->SetForegroundWindow();
    } else {
        SetForegroundWindow();
        GetPlotView().SetFocus();
    }
}

void CViewerFrame::OnUpdateNextWindow(CCmdUI* pCmdUI) {
    pCmdUI->Enable(GetReadOut() != nullptr);
}

void CViewerFrame::OnKeys() {
    CViewerKeysDialog(this).DoModal();
}

BEGIN_MESSAGE_MAP(CViewerFrame, CFrameWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_DESTROY()
ON_MESSAGE(WM_FILE_CHANGED, OnFileChanged)
ON_MESSAGE(WM_CROSSSECTION, OnCrossSection)
ON_COMMAND(ID_FILE_OPEN, OnFileOpen)
ON_COMMAND(ID_FILE_RELOAD, OnReload)
ON_COMMAND(ID_FILE_EXPORT, OnExport)
ON_COMMAND(ID_FILE_CLOSE, OnCloseWindow)
ON_COMMAND(ID_EDIT_COPY, OnCopy)
ON_COMMAND(ID_EDIT_COPY_VALUES, OnCopyValues)
ON_COMMAND(ID_VIEW_FULL_SCREEN, OnFullScreen)
ON_COMMAND(ID_VIEW_NEXT_WINDOW, OnNextWindow)
ON_COMMAND(ID_LEAVE, OnLeave)
ON_COMMAND(ID_BANNER_CLOSE, OnLeave)
ON_COMMAND(ID_HELP_KEYS, OnKeys)
ON_UPDATE_COMMAND_UI(ID_FILE_RELOAD, OnUpdateReload)
ON_UPDATE_COMMAND_UI(ID_FILE_EXPORT, OnUpdatePlot)
ON_UPDATE_COMMAND_UI(ID_EDIT_COPY, OnUpdatePlot)
ON_UPDATE_COMMAND_UI(ID_EDIT_COPY_VALUES, OnUpdatePlot)
ON_UPDATE_COMMAND_UI(ID_VIEW_FULL_SCREEN, OnUpdateFullScreen)
ON_UPDATE_COMMAND_UI(ID_VIEW_NEXT_WINDOW, OnUpdateNextWindow)
ON_UPDATE_COMMAND_UI(IDS_VIEWER_ZOOMED, OnUpdateZoomed)
END_MESSAGE_MAP()

} // namespace tessara
