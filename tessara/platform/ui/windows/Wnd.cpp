#include "tessara/platform/ui/windows/Wnd.h"

#include <utility>

#include "tessara/platform/base/Text.h"
#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/ClientDC.h"
#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/System.h"
#include "tessara/platform/ui/windows/WindowEnd.h"
#include "tessara/platform/ui/windows/WindowTable.h"

IMPLEMENT_DYNCREATE(CWnd, CCmdTarget)

CWnd::~CWnd() {
    tessara::DestroyWithObject(m_hWnd, *this);
}

CWnd* CWnd::FromHandle(HWND hWnd) {
    const auto record = tessara::FindWindow(hWnd);
    return record ? record->pWnd : nullptr;
}

HWND CWnd::GetSafeHwnd() const {
    return m_hWnd;
}

BOOL CWnd::Create(const char* pszClassName, const char* pszText, DWORD dwStyle, const RECT& rect,
                  CWnd* pParent, UINT nID) {
    return CreateEx(0, pszClassName, pszText, dwStyle, rect, pParent, nID);
}

BOOL CWnd::CreateEx(DWORD dwExStyle, const char* pszClassName, const char* pszText, DWORD dwStyle,
                    const RECT& rect, CWnd* pParent, UINT nID, void* pParam) {
    return CreateUnder(pParent ? pParent->GetSafeHwnd() : nullptr, dwExStyle, pszClassName, pszText, dwStyle,
                       rect, nID, pParam);
}

BOOL CWnd::CreateUnder(HWND hParent, DWORD dwExStyle, const char* pszClassName, const char* pszText,
                       DWORD dwStyle, const RECT& rect, UINT nID, void* pParam) {
    if (tessara::FindWindow(m_hWnd)) {
        return FALSE;
    }
    CREATESTRUCT create{
        pParam,  hParent,  rect.bottom - rect.top, rect.right - rect.left, rect.top, rect.left,
        dwStyle, dwExStyle};
    HWND hWnd = nullptr;
    if (PreCreateWindow(create) && (tessara::FindWindow(create.hwndParent) || tessara::CanMakeWindows())) {
        tessara::CWindowRecord made{nullptr,           nullptr, tessara::CMailbox::OfThisThread(),
                                    create.hwndParent, nID,     create.style};
        tessara::SetObject(made, this, GetMessageMap());
        hWnd = tessara::AddWindow(made);
    }
    if (!hWnd) {
        PostNcDestroy();
        return FALSE;
    }
    m_hWnd = hWnd;
    try {
        if (!MakeWidget(create, pszClassName, pszText, nID)) {
            return FALSE;
        }
        if (!TellCreated(create)) {
            tessara::DestroyTree(hWnd);
        }
    } catch (...) {
        tessara::DiscardWindow(hWnd);
        throw;
    }
    return tessara::FindWindow(hWnd).has_value(); // a handler may have destroyed it, and with it this object
}

/// False when there can be no widget; the object may have gone then, as after PostNcDestroy.
bool CWnd::MakeWidget(const CREATESTRUCT& create, const char* pszClassName, const char* pszText, UINT nID) {
    const HWND hWnd = m_hWnd;
    const RECT place{create.x, create.y, create.x + create.cx, create.y + create.cy};
    const bool bMade = tessara::OnMainThread([&] {
        return tessara::MakePeer(
            {hWnd, pszClassName, pszText, create.style, create.dwExStyle, place, create.hwndParent, nID});
    });
    if (!tessara::FindWindow(hWnd)) {
        return false; // its owner ended meanwhile, and it too
    }
    if (!bMade) {
        tessara::RemoveWindow(hWnd);
        m_hWnd = nullptr;
        PostNcDestroy();
    }
    return bMade;
}

/// False when WM_CREATE says that the window cannot be. Handlers may have deleted the object.
bool CWnd::TellCreated(const CREATESTRUCT& create) {
    const HWND hWnd = m_hWnd;
    CREATESTRUCT told = create;
    PreSubclassWindow();
    if (::SendMessage(hWnd, WM_CREATE, 0, reinterpret_cast<LPARAM>(&told)) == -1) {
        return false;
    }
    if (tessara::FindWindow(hWnd) && (create.style & WS_VISIBLE)) {
        ShowWindow(create.style & WS_MAXIMIZE   ? SW_SHOWMAXIMIZED
                   : create.style & WS_MINIMIZE ? SW_SHOWMINIMIZED
                                                : SW_SHOW);
    }
    return true;
}

BOOL CWnd::PreCreateWindow(CREATESTRUCT&) {
    return TRUE;
}

BOOL CWnd::DestroyWindow() {
    return tessara::DestroyTree(m_hWnd);
}

BOOL CWnd::SubclassWindow(HWND hWnd) {
    const AFX_MSGMAP* const pMap = GetMessageMap();
    const bool bFound = !m_hWnd && tessara::ChangeWindow(hWnd, [&](tessara::CWindowRecord& record) {
        tessara::SetObject(record, this, pMap);
    });
    if (bFound) {
        m_hWnd = hWnd;
        PreSubclassWindow();
    }
    return bFound;
}

BOOL CWnd::SubclassDlgItem(UINT nID, CWnd* pParent) {
    const CWnd* pItem = pParent ? pParent->GetDlgItem(static_cast<int>(nID)) : nullptr;
    return pItem && SubclassWindow(pItem->m_hWnd);
}

HWND CWnd::UnsubclassWindow() {
    tessara::GiveBackWindow(m_hWnd);
    return std::exchange(m_hWnd, nullptr);
}

CWnd* CWnd::GetParent() const {
    const auto record = tessara::FindWindow(m_hWnd);
    return record ? FromHandle(record->hParent) : nullptr;
}

CWnd* CWnd::GetTopLevelParent() const {
    CWnd* pTop = FromHandle(m_hWnd);
    while (pTop && (pTop->GetStyle() & WS_CHILD) && pTop->GetParent()) {
        pTop = pTop->GetParent();
    }
    return pTop;
}

BOOL CWnd::IsChild(const CWnd* pWnd) const {
    while (pWnd && (pWnd->GetStyle() & WS_CHILD)) {
        pWnd = pWnd->GetParent();
        if (pWnd == this) {
            return TRUE;
        }
    }
    return FALSE;
}

CWnd* CWnd::GetDlgItem(int nID) const {
    for (const HWND hChild : tessara::ChildrenOf(m_hWnd)) {
        const auto record = tessara::FindWindow(hChild);
        if (record && record->nID == static_cast<UINT>(nID) && (record->dwStyle & WS_CHILD)) {
            return record->pWnd;
        }
    }
    return nullptr;
}

int CWnd::GetDlgCtrlID() const {
    const auto record = tessara::FindWindow(m_hWnd);
    return record ? static_cast<int>(record->nID) : 0;
}

DWORD CWnd::GetStyle() const {
    const auto record = tessara::FindWindow(m_hWnd);
    return record ? record->dwStyle : 0;
}

BOOL CWnd::ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT) {
    bool bChanged = false;
    tessara::ChangeWindow(m_hWnd, [&](tessara::CWindowRecord& record) {
        const DWORD dwStyle = (record.dwStyle & ~dwRemove) | dwAdd;
        bChanged = dwStyle != std::exchange(record.dwStyle, dwStyle);
    });
    return bChanged;
}

int CWnd::GetWindowText(char* pszText, int nMaxCount) const {
    CString strText;
    GetWindowText(strText);
    if (!pszText || nMaxCount <= 0) {
        return 0;
    }
    const std::string_view str = tessara::CutText(strText.View(), static_cast<std::size_t>(nMaxCount) - 1);
    pszText[str.copy(pszText, str.size())] = '\0';
    return static_cast<int>(str.size());
}

int CWnd::GetWindowTextLength() const {
    CString strText;
    GetWindowText(strText);
    return strText.GetLength();
}

void CWnd::SetDlgItemText(int nID, const char* pszText) {
    if (CWnd* pItem = GetDlgItem(nID)) {
        pItem->SetWindowText(pszText);
    }
}

int CWnd::GetDlgItemText(int nID, CString& strText) const {
    strText.Empty();
    if (const CWnd* pItem = GetDlgItem(nID)) {
        pItem->GetWindowText(strText);
    }
    return strText.GetLength();
}

int CWnd::GetDlgItemText(int nID, char* pszText, int nMaxCount) const {
    if (const CWnd* pItem = GetDlgItem(nID)) {
        return pItem->GetWindowText(pszText, nMaxCount);
    }
    if (pszText && nMaxCount > 0) {
        *pszText = '\0';
    }
    return 0;
}

void CWnd::SetDlgItemInt(int nID, UINT nValue, BOOL bSigned) {
    CString strText;
    if (bSigned) {
        strText.Format("%d", static_cast<int>(nValue));
    } else {
        strText.Format("%u", nValue);
    }
    SetDlgItemText(nID, strText);
}

CFont* CWnd::GetFont() const {
    const LOGFONT font = tessara::WindowFont(this);
    if (!m_pFont) {
        m_pFont = std::make_unique<CFont>();
    }
    m_pFont->CreateFontIndirect(&font);
    return m_pFont.get();
}

void CWnd::MoveWindow(const RECT& rect, BOOL bRepaint) {
    MoveWindow(rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, bRepaint);
}

void CWnd::ClientToScreen(RECT* pRect) const {
    CPoint origin;
    ClientToScreen(&origin);
    *pRect = {pRect->left + origin.x, pRect->top + origin.y, pRect->right + origin.x,
              pRect->bottom + origin.y};
}

void CWnd::ScreenToClient(RECT* pRect) const {
    CPoint origin;
    ScreenToClient(&origin);
    *pRect = {pRect->left + origin.x, pRect->top + origin.y, pRect->right + origin.x,
              pRect->bottom + origin.y};
}

void CWnd::Invalidate(BOOL bErase) {
    InvalidateRect(nullptr, bErase);
}

void CWnd::RedrawWindow() {
    Invalidate();
    UpdateWindow();
}

CDC* CWnd::GetDC() {
    return tessara::FindWindow(m_hWnd) ? new CClientDC(this) : nullptr;
}

int CWnd::ReleaseDC(CDC* pDC) {
    delete pDC;
    return pDC != nullptr;
}

LRESULT CWnd::SendMessage(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return ::SendMessage(m_hWnd, nMessage, wParam, lParam);
}

BOOL CWnd::PostMessage(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return ::PostMessage(m_hWnd, nMessage, wParam, lParam);
}

BOOL CWnd::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra);
}

LRESULT CWnd::WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    if (nMessage == WM_COMMAND && OnCommand(wParam, lParam)) {
        return 0;
    }
    LRESULT lResult = 0;
    if (nMessage == WM_NOTIFY && OnNotify(wParam, lParam, &lResult)) {
        return lResult;
    }
    AFX_MESSAGE message{wParam, lParam, nullptr, 0};
    if (nMessage != WM_COMMAND && nMessage != WM_NOTIFY &&
        tessara::DispatchThroughMap(*this, GetMessageMap(), {nMessage, 0, 0}, message)) {
        return message.lResult;
    }
    return DefWindowProc(nMessage, wParam, lParam);
}

LRESULT CWnd::DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    tessara::MarkDefaulted();
    LRESULT lResult = 0;
    if (nMessage == WM_CLOSE) {
        DestroyWindow();
    } else if (nMessage == WM_DRAWITEM || nMessage == WM_MEASUREITEM) {
        // Nobody drew the control's item for it: it may do so itself.
        CWnd* const pControl = GetDlgItem(static_cast<int>(wParam));
        if (pControl) {
            pControl->OnChildNotify(nMessage, wParam, lParam, &lResult);
        }
    }
    return lResult;
}

LRESULT CWnd::Default() {
    const MSG* const pMessage = tessara::GetCurrentMessage();
    return pMessage ? DefWindowProc(pMessage->message, pMessage->wParam, pMessage->lParam) : 0;
}

BOOL CWnd::OnCommand(WPARAM wParam, LPARAM) {
    return OnCmdMsg(LOWORD(wParam), HIWORD(wParam), nullptr);
}

BOOL CWnd::OnNotify(WPARAM, LPARAM lParam, LRESULT* pResult) {
    const auto* pHeader = reinterpret_cast<const NMHDR*>(lParam);
    AFX_MESSAGE message{pHeader->idFrom, lParam, nullptr, 0};
    const BOOL bTaken = tessara::DispatchThroughMap(*this, GetMessageMap(),
                                                    {WM_NOTIFY, pHeader->code, pHeader->idFrom}, message);
    *pResult = message.lResult;
    return bTaken;
}

BOOL CWnd::OnChildNotify(UINT, WPARAM, LPARAM, LRESULT*) {
    return FALSE;
}

BOOL CWnd::PreTranslateMessage(MSG*) {
    return FALSE;
}

void CWnd::PostNcDestroy() {}

BEGIN_MESSAGE_MAP(CWnd, CCmdTarget)
END_MESSAGE_MAP()

BOOL IsWindow(HWND hWnd) {
    return tessara::FindWindow(hWnd).has_value();
}

BOOL PostMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    const auto record = tessara::FindWindow(hWnd);
    return record && record->pOwner->Post({hWnd, nMessage, wParam, lParam});
}

LRESULT SendMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    const auto record = tessara::FindWindow(hWnd);
    LRESULT lResult = 0;
    if (record) {
        record->pOwner->Call([&] { lResult = tessara::CallWindow(hWnd, nMessage, wParam, lParam).lResult; });
    }
    return lResult;
}
