#include "tessara/platform/ui/dialogs/Dialog.h"

#include "tessara/platform/base/Exception.h"
#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/controls/Controls.h"
#include "tessara/platform/ui/dialogs/DialogSeam.h"
#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/WindowEnd.h"
#include "tessara/platform/ui/windows/WindowTable.h"

IMPLEMENT_DYNAMIC(CDialog, CWnd)

namespace {

/// Keeps a window from input while it lives, and makes it the active one again.
class COwnerScope {
public:
    explicit COwnerScope(HWND hOwner) : m_hOwner(tessara::BlockOwner(hOwner) ? hOwner : nullptr) {}
    ~COwnerScope() { tessara::UnblockOwner(m_hOwner); }
    COwnerScope(const COwnerScope&) = delete;
    COwnerScope& operator=(const COwnerScope&) = delete;

private:
    HWND m_hOwner; ///< null when somebody else had disabled it
};

/// Ends a window whichever way the scope is left.
class CWindowScope {
public:
    explicit CWindowScope(CWnd& wnd) : m_wnd(wnd) {}
    ~CWindowScope() {
        tessara::RunGuarded([this] { m_wnd.DestroyWindow(); });
    }
    CWindowScope(const CWindowScope&) = delete;
    CWindowScope& operator=(const CWindowScope&) = delete;

private:
    CWnd& m_wnd;
};

void AddItem(CWnd& dialog, const tessara::CDialogItem& item) {
    std::unique_ptr<CWnd> pControl = tessara::MakeControlObject(item.pszClass);
    const DWORD dwStyle = item.dwStyle | WS_CHILD;
    if (pControl->CreateEx(item.dwExStyle, item.pszClass, item.pszText, dwStyle, CRect(), &dialog,
                           item.nID)) {
        const HWND hControl = pControl->m_hWnd;
        tessara::KeepForWindow(hControl, std::move(pControl));
    }
}

} // namespace

BOOL CDialog::Create(UINT nIDTemplate, CWnd* pParent) {
    m_pParentWnd = pParent;
    const CWnd* const pOwner = pParent ? pParent : AfxGetMainWnd();
    return CreateOver(nIDTemplate, tessara::TopLevelOf(pOwner ? pOwner->GetSafeHwnd() : nullptr));
}

BOOL CDialog::CreateOwnedBy(UINT nIDTemplate, HWND hOwner) {
    m_pParentWnd = nullptr;
    const HWND hTop = tessara::TopLevelOf(hOwner);
    return (hTop || !hOwner) && CreateOver(nIDTemplate, hTop);
}

/// The owner is a top-level window, or null.
BOOL CDialog::CreateOver(UINT nIDTemplate, HWND hOwner) {
    const tessara::CDialogTemplate* const pTemplate = tessara::FindDialogTemplate(nIDTemplate);
    if (!pTemplate) {
        return FALSE;
    }
    m_nIDTemplate = nIDTemplate;
    m_pLoop.reset();
    if (!Build(*pTemplate, hOwner)) {
        return FALSE;
    }
    const HWND hWnd = m_hWnd;
    try {
        Initialise();
    } catch (...) {
        tessara::DiscardWindow(hWnd);
        throw;
    }
    if (tessara::FindWindow(hWnd) && (pTemplate->dwStyle & WS_VISIBLE)) {
        ShowWindow(SW_SHOW);
    }
    return tessara::FindWindow(hWnd).has_value();
}

int CDialog::DoModal() {
    const tessara::CDialogTemplate* const pTemplate = tessara::FindDialogTemplate(m_nIDTemplate);
    if (!pTemplate) {
        AfxThrowResourceException();
    }
    m_pLoop = tessara::CMailbox::OfThisThread();
    m_bEnded = false;
    m_nResult = IDCANCEL;
    const HWND hOwner = FindOwner();
    const CWindowScope window(*this); // goes last: the owner takes input again before the dialog disappears
    const COwnerScope owner(hOwner);
    if (!Build(*pTemplate, hOwner)) {
        return -1;
    }
    Initialise();
    if (!m_bEnded) {
        ShowWindow(SW_SHOW);
    }
    const auto fnEnd = [this] { return m_bEnded || !tessara::FindWindow(m_hWnd); };
    return tessara::RunLoopUntil(fnEnd) ? m_nResult.load() : -1;
}

HWND CDialog::FindOwner() const {
    const HWND hActive = tessara::FindActiveWindow();
    const CWnd* const pMain = AfxGetMainWnd();
    const HWND hMain = pMain ? pMain->GetSafeHwnd() : nullptr;
    return tessara::TopLevelOf(m_pParentWnd ? m_pParentWnd->GetSafeHwnd() : hActive ? hActive : hMain);
}

BOOL CDialog::Build(const tessara::CDialogTemplate& resource, HWND hOwner) {
    const DWORD dwStyle = resource.dwStyle & ~static_cast<DWORD>(WS_VISIBLE);
    if (!CreateUnder(hOwner, resource.dwExStyle, tessara::CLASS_DIALOG, resource.pszTitle, dwStyle, CRect(),
                     resource.nID)) {
        return FALSE;
    }
    for (const tessara::CDialogItem& item : resource.items) {
        AddItem(*this, item);
    }
    tessara::LayOutDialog(m_hWnd, resource);
    if ((resource.dwStyle & DS_CENTER) || (resource.x == 0 && resource.y == 0)) {
        CenterWindow();
    }
    return TRUE;
}

void CDialog::Initialise() {
    if (SendMessage(WM_INITDIALOG)) {
        tessara::FocusFirstControl(m_hWnd);
    }
}

void CDialog::EndDialog(int nResult) {
    m_nResult = nResult;
    m_bEnded = true;
    if (m_pLoop) {
        m_pLoop->Nudge();
    } else {
        ShowWindow(SW_HIDE);
    }
}

BOOL CDialog::OnInitDialog() {
    UpdateData(FALSE);
    return TRUE;
}

LRESULT CDialog::HandleInitDialog(WPARAM, LPARAM) {
    return OnInitDialog();
}

BOOL CDialog::UpdateData(BOOL bSaveAndValidate) {
    CDataExchange exchange(this, bSaveAndValidate);
    DoDataExchange(&exchange);
    return TRUE;
}

DWORD CDialog::GetDefID() const {
    for (const HWND hControl : tessara::ChildrenOf(m_hWnd)) {
        const CWnd* const pControl = CWnd::FromHandle(hControl);
        if (pControl && dynamic_cast<const CButton*>(pControl) &&
            (pControl->GetStyle() & BS_TYPEMASK) == BS_DEFPUSHBUTTON) {
            return static_cast<DWORD>(pControl->GetDlgCtrlID()) | DC_HASDEFID << 16;
        }
    }
    return 0;
}

void CDialog::SetDefID(UINT nID) {
    const auto fnSetStyle = [this](UINT nControl, ButtonStyle eStyle) {
        if (auto* const pButton = dynamic_cast<CButton*>(GetDlgItem(static_cast<int>(nControl)))) {
            pButton->SetButtonStyle(eStyle);
        }
    };
    fnSetStyle(LOWORD(GetDefID()), BS_PUSHBUTTON);
    fnSetStyle(nID, BS_DEFPUSHBUTTON);
}

void CDialog::OnOK() {
    if (UpdateData(TRUE)) {
        EndDialog(IDOK);
    }
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::OnClose() {
    const CWnd* const pCancel = GetDlgItem(IDCANCEL);
    if (!pCancel || pCancel->IsWindowEnabled()) {
        SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED));
    }
}

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_MESSAGE(WM_INITDIALOG, HandleInitDialog)
ON_COMMAND(IDOK, OnOK)
ON_COMMAND(IDCANCEL, OnCancel)
ON_WM_CLOSE()
END_MESSAGE_MAP()
