#include "tessara/platform/ui/threads/Dispatch.h"

#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tessara/platform/ui/windows/WndAccess.h"

namespace tessara {

namespace {

/// The message that the calling thread is handling.
struct CCurrentMessage {
    MSG message{nullptr, 0, 0, 0};
    bool bDefaulted = false;
};

thread_local CCurrentMessage* t_pCurrent = nullptr;

class CCurrentScope {
public:
    explicit CCurrentScope(const MSG& message) : m_current{message, false}, m_pPrevious(t_pCurrent) {
        t_pCurrent = &m_current;
    }
    ~CCurrentScope() { t_pCurrent = m_pPrevious; }
    CCurrentScope(const CCurrentScope&) = delete;
    CCurrentScope& operator=(const CCurrentScope&) = delete;
    bool IsDefaulted() const { return m_current.bDefaulted; }

private:
    CCurrentMessage m_current;
    CCurrentMessage* m_pPrevious;
};

/// Gives a message to a window and the thrown exceptions to the thread.
CReply CallGuarded(const MSG& message) {
    try {
        return CallWindow(message.hwnd, message.message, message.wParam, message.lParam);
    } catch (const std::exception& exception) {
        CWinThread* const pThread = AfxGetThread();
        return {true, pThread ? pThread->ProcessWndProcException(exception, &message) : 0};
    }
}

} // namespace

CReply CallWindow(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    const auto record = FindWindow(hWnd);
    if (!record || !record->pWnd) {
        return {};
    }
    const MSG message{hWnd, nMessage, wParam, lParam};
    const CCurrentScope current(message);
    const LRESULT lResult = CWndAccess::WindowProc(*record->pWnd, message);
    return {!current.IsDefaulted(), lResult};
}

CReply Tell(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    const auto record = FindWindow(hWnd);
    if (!record) {
        return {};
    }
    const MSG message{hWnd, nMessage, wParam, lParam};
    if (record->pOwner->IsOfThisThread()) {
        return CallGuarded(message);
    }
    record->pOwner->Post(message);
    return {};
}

void DispatchPosted(const MSG& message) {
    if (message.message == WM_PEER_QUESTION) {
        AnswerQuestion(reinterpret_cast<HWND>(message.wParam), message.lParam);
        return;
    }
    if (message.hwnd) {
        CallGuarded(message);
        return;
    }
    if (CWinThread* const pThread = AfxGetThread()) {
        AFX_MESSAGE words{message.wParam, message.lParam, nullptr, 0};
        DispatchThreadMessage(*pThread, message.message, words);
    }
}

bool PreTranslate(const MSG& message) {
    MSG copy = message;
    for (HWND hWnd = message.hwnd; hWnd;) {
        const auto record = FindWindow(hWnd);
        if (!record) {
            return true; // gone while it was asked
        }
        if (record->pWnd && CWndAccess::PreTranslate(*record->pWnd, copy)) {
            return true;
        }
        hWnd = record->hParent;
    }
    CWinThread* const pThread = AfxGetThread();
    return pThread && pThread->PreTranslateMessage(&copy);
}

const MSG* GetCurrentMessage() {
    return t_pCurrent ? &t_pCurrent->message : nullptr;
}

void MarkDefaulted() {
    if (t_pCurrent) {
        t_pCurrent->bDefaulted = true;
    }
}

} // namespace tessara
