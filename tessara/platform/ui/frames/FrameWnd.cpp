#include "tessara/platform/ui/frames/FrameWnd.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/frames/CmdUI.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/StatusBar.h"
#include "tessara/platform/ui/frames/ToolBar.h"
#include "tessara/platform/ui/frames/View.h"
#include "tessara/platform/ui/frames/WinApp.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/windows/WindowTable.h"

IMPLEMENT_DYNCREATE(CFrameWnd, CWnd)

const RECT CFrameWnd::rectDefault{0, 0, 0, 0};

namespace {

/// Learns whether a command that no menu shows is enabled.
class CCommandProbe : public CCmdUI {
public:
    using CCmdUI::CCmdUI;
    bool m_bEnabled = true;
    void Enable(BOOL bOn) override {
        CCmdUI::Enable(bOn);
        m_bEnabled = bOn != 0;
    }
};

const tessara::CAccelerator* FindAccelerator(const tessara::CAcceleratorResource& resource, UINT nKey,
                                             UINT nKeys) {
    for (const tessara::CAccelerator& accelerator : resource.accelerators) {
        if (accelerator.nKey == nKey && accelerator.nKeys == nKeys) {
            return &accelerator;
        }
    }
    // On many keyboards a plus is typed with Shift, which the user does not take for a part of the
    // accelerator.
    return nKey == VK_OEM_PLUS && nKeys & FSHIFT ? FindAccelerator(resource, nKey, nKeys & ~FSHIFT) : nullptr;
}

} // namespace

CFrameWnd::~CFrameWnd() = default;

CFrameWnd* CWnd::GetParentFrame() const {
    CWnd* pWnd = GetParent();
    while (pWnd && !pWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd))) {
        pWnd = pWnd->GetParent();
    }
    return static_cast<CFrameWnd*>(pWnd);
}

BOOL CFrameWnd::Create(const char* pszClassName, const char* pszText, DWORD dwStyle, const RECT& rect,
                       CWnd* pParent, UINT nMenuID) {
    const tessara::CMenuResource* const pMenu = nMenuID ? tessara::FindMenuResource(nMenuID) : nullptr;
    if (nMenuID && !pMenu) {
        AfxThrowResourceException();
    }
    m_strTitle = pszText;
    if (!CreateEx(0, pszClassName ? pszClassName : tessara::FRAME_CLASS, pszText, dwStyle, rect, pParent,
                  0)) {
        return FALSE;
    }
    if (pMenu) {
        tessara::SetFrameMenu(m_hWnd, *pMenu);
    }
    return TRUE;
}

BOOL CFrameWnd::LoadFrame(UINT nIDResource, DWORD dwDefaultStyle, CWnd* pParent, CCreateContext* pContext) {
    const tessara::CMenuResource* const pMenu = tessara::FindMenuResource(nIDResource);
    if (!pMenu) {
        AfxThrowResourceException();
    }
    m_strTitle = tessara::StandardStringLine(nIDResource, CDocTemplate::windowTitle);
    const CWinApp* const pApp = AfxGetApp();
    if (m_strTitle.IsEmpty() && pApp) {
        m_strTitle = pApp->m_pszAppName;
    }
    m_pAccelerators = tessara::FindAcceleratorResource(nIDResource);
    if (!CreateEx(0, tessara::FRAME_CLASS, m_strTitle, dwDefaultStyle, rectDefault, pParent, 0, pContext)) {
        return FALSE;
    }
    tessara::SetFrameMenu(m_hWnd, *pMenu);
    SetIcon(nIDResource);
    return TRUE;
}

BOOL CFrameWnd::LoadAccelTable(UINT nIDResource) {
    m_pAccelerators = tessara::FindAcceleratorResource(nIDResource);
    if (!m_pAccelerators) {
        AfxThrowResourceException();
    }
    return TRUE;
}

int CFrameWnd::OnCreate(LPCREATESTRUCT pCreate) {
    if (!OnCreateClient(pCreate, static_cast<CCreateContext*>(pCreate->lpCreateParams))) {
        return -1;
    }
    RecalcLayout();
    return CWnd::OnCreate(pCreate);
}

BOOL CFrameWnd::OnCreateClient(LPCREATESTRUCT, CCreateContext* pContext) {
    return !pContext || !pContext->m_pNewViewClass || CreateView(pContext);
}

CView* CFrameWnd::CreateView(CCreateContext* pContext, UINT nID) {
    CObject* const pObject = pContext->m_pNewViewClass->CreateObject();
    if (!pObject || !pObject->IsKindOf(RUNTIME_CLASS(CView))) {
        delete pObject;
        AfxThrowResourceException();
    }
    std::unique_ptr<CView> pView(static_cast<CView*>(pObject));
    CRect client;
    GetClientRect(&client);
    const BOOL bMade =
        pView->CreateEx(0, tessara::VIEW_CLASS, "", WS_CHILD | WS_VISIBLE, client, this, nID, pContext);
    CView* const pMade = pView.release(); // it deletes itself with its window, which may have failed
    return bMade ? pMade : nullptr;
}

CDocument* CFrameWnd::GetActiveDocument() {
    return m_pViewActive ? m_pViewActive->GetDocument() : nullptr;
}

void CFrameWnd::SetActiveView(CView* pView, BOOL bNotify) {
    CView* const pPrevious = m_pViewActive;
    if (pPrevious == pView) {
        return;
    }
    m_pViewActive = nullptr;
    if (pPrevious && bNotify) {
        pPrevious->OnActivateView(FALSE, pView, pPrevious);
    }
    m_pViewActive = pView;
    if (pView && bNotify) {
        pView->OnActivateView(TRUE, pView, pPrevious);
    }
}

void CFrameWnd::InitialUpdateFrame(CDocument* pDocument, BOOL bMakeVisible) {
    CView* pView = nullptr;
    CWnd* const pPane = GetDlgItem(AFX_IDW_PANE_FIRST);
    if (!m_pViewActive && pPane && pPane->IsKindOf(RUNTIME_CLASS(CView))) {
        pView = static_cast<CView*>(pPane);
        SetActiveView(pView, FALSE);
    }
    if (bMakeVisible) {
        POSITION position = pDocument ? pDocument->GetFirstViewPosition() : nullptr;
        while (position) {
            CView* const pNext = pDocument->GetNextView(position);
            if (pNext->GetParentFrame() == this) {
                pNext->OnInitialUpdate();
            }
        }
        ActivateFrame();
        if (pView) {
            pView->OnActivateView(TRUE, pView, pView);
        }
    }
    OnUpdateFrameTitle(TRUE);
}

void CFrameWnd::ActivateFrame(int nCmdShow) {
    CWinApp* const pApp = AfxGetApp();
    if (nCmdShow == -1 && !IsWindowVisible()) {
        nCmdShow = pApp && pApp->m_pMainWnd == this ? pApp->m_nCmdShow : static_cast<int>(SW_SHOWNORMAL);
    } else if (nCmdShow == -1 && IsIconic()) {
        nCmdShow = SW_RESTORE;
    }
    if (nCmdShow != -1) {
        ShowWindow(nCmdShow);
    }
    SetForegroundWindow();
}

void CFrameWnd::RecalcLayout(BOOL) {
    if (CWnd* const pPane = GetDlgItem(AFX_IDW_PANE_FIRST)) {
        CRect client;
        GetClientRect(&client);
        pPane->MoveWindow(client);
    }
}

void CFrameWnd::OnUpdateFrameTitle(BOOL bAddToTitle) {
    if (!(GetStyle() & FWS_ADDTOTITLE)) {
        return;
    }
    CWnd* const pPane = GetDlgItem(AFX_IDW_PANE_FIRST);
    CDocument* pDocument = GetActiveDocument();
    if (!pDocument && pPane && pPane->IsKindOf(RUNTIME_CLASS(CView))) {
        pDocument = static_cast<CView*>(pPane)->GetDocument();
    }
    CString strTitle = m_strTitle;
    if (bAddToTitle && pDocument) {
        strTitle = pDocument->GetTitle() + (pDocument->IsModified() ? "* - " : " - ") + m_strTitle;
    }
    SetWindowText(strTitle);
}

void CFrameWnd::SetMessageText(const char* pszText) {
    CWnd* const pBar = GetDlgItem(AFX_IDW_STATUS_BAR);
    if (pBar && pBar->IsKindOf(RUNTIME_CLASS(CStatusBar))) {
        static_cast<CStatusBar*>(pBar)->SetPaneText(0, pszText);
    }
}

void CFrameWnd::SetMessageText(UINT nID) {
    SetMessageText(tessara::StandardStringLine(nID, 0));
}

void CFrameWnd::ShowControlBar(CWnd* pBar, BOOL bShow, BOOL) {
    pBar->ShowWindow(bShow ? SW_SHOW : SW_HIDE);
    RecalcLayout();
}

void CFrameWnd::UpdateControls() {
    for (const HWND hChild : tessara::ChildrenOf(m_hWnd)) {
        const auto record = tessara::FindWindow(hChild);
        // A dialog that another thread has over the frame is that thread's to touch.
        CWnd* const pChild = record && record->pOwner->IsOfThisThread() ? FromHandle(hChild) : nullptr;
        if (!pChild || !pChild->IsWindowVisible()) {
            continue;
        }
        if (pChild->IsKindOf(RUNTIME_CLASS(CToolBar))) {
            tessara::UpdateToolButtons(hChild);
        } else if (pChild->IsKindOf(RUNTIME_CLASS(CStatusBar))) {
            static_cast<CStatusBar*>(pChild)->UpdatePanes(*this);
        }
    }
}

BOOL CFrameWnd::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    if (m_pViewActive && m_pViewActive->OnCmdMsg(nID, nCode, pExtra)) {
        return TRUE;
    }
    if (CWnd::OnCmdMsg(nID, nCode, pExtra)) {
        return TRUE;
    }
    CWinApp* const pApp = AfxGetApp();
    return pApp && pApp->OnCmdMsg(nID, nCode, pExtra);
}

void CFrameWnd::RunAccelerator(UINT nCommand) {
    bool bEnabled = true;
    const tessara::EItemState eState = tessara::UpdateMenuItem(m_hWnd, nCommand);
    if (eState == tessara::EItemState::none) {
        CCommandProbe probe(nCommand);
        probe.DoUpdate(*this);
        bEnabled = probe.m_bEnabled;
    } else {
        bEnabled = eState == tessara::EItemState::enabled;
    }
    if (bEnabled) {
        SendMessage(WM_COMMAND, nCommand);
    }
}

BOOL CFrameWnd::PreTranslateMessage(MSG* pMsg) {
    if (pMsg->message == WM_KEYDOWN && m_pAccelerators && !tessara::IsBlocked(m_hWnd)) {
        const auto* const pAccelerator = FindAccelerator(*m_pAccelerators, static_cast<UINT>(pMsg->wParam),
                                                         tessara::HeldAcceleratorKeys());
        if (pAccelerator) {
            RunAccelerator(pAccelerator->nCommand);
            return TRUE;
        }
    }
    return CWnd::PreTranslateMessage(pMsg);
}

void CFrameWnd::PostNcDestroy() {
    delete this;
}

void CFrameWnd::OnClose() {
    CDocument* const pDocument = GetActiveDocument();
    if (pDocument && !pDocument->CanCloseFrame(this)) {
        return;
    }
    CWinApp* const pApp = AfxGetApp();
    if (pApp && pApp->m_pMainWnd == this) {
        if (!pDocument && !pApp->SaveAllModified()) {
            return;
        }
        ShowWindow(SW_HIDE);
        const HWND hWnd = m_hWnd;
        pApp->CloseAllDocuments(FALSE);
        if (!IsWindow(hWnd)) {
            return; // went with the document
        }
    }
    DestroyWindow();
}

void CFrameWnd::OnSize(UINT nType, int, int) {
    if (nType != SIZE_MINIMIZED) {
        RecalcLayout();
    }
    Default();
}

void CFrameWnd::OnSetFocus(CWnd* pPrevious) {
    if (m_pViewActive) {
        m_pViewActive->SetFocus();
    } else {
        CWnd::OnSetFocus(pPrevious);
    }
}

void CFrameWnd::OnBarCheck(UINT nID) {
    if (CWnd* const pBar = GetDlgItem(static_cast<int>(nID))) {
        ShowControlBar(pBar, !(pBar->IsWindowVisible()), FALSE);
    }
}

void CFrameWnd::OnUpdateControlBarMenu(CCmdUI* pCmdUI) {
    const CWnd* const pBar = GetDlgItem(static_cast<int>(pCmdUI->m_nID));
    pCmdUI->Enable(pBar != nullptr);
    pCmdUI->SetCheck(pBar && pBar->IsWindowVisible());
}

BEGIN_MESSAGE_MAP(CFrameWnd, CWnd)
ON_WM_CREATE()
ON_WM_CLOSE()
ON_WM_SIZE()
ON_WM_SETFOCUS()
ON_COMMAND_RANGE(ID_VIEW_TOOLBAR, ID_VIEW_STATUS_BAR, OnBarCheck)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_TOOLBAR, ID_VIEW_STATUS_BAR, OnUpdateControlBarMenu)
END_MESSAGE_MAP()

namespace tessara {

void UpdateFrames() {
    for (const HWND hWnd : WindowsOf(*CMailbox::OfMainThread())) {
        CWnd* const pWnd = CWnd::FromHandle(hWnd);
        if (pWnd && pWnd->IsKindOf(RUNTIME_CLASS(CFrameWnd)) && pWnd->IsWindowVisible()) {
            static_cast<CFrameWnd*>(pWnd)->UpdateControls();
        }
    }
}

} // namespace tessara
