#include "tessara/platform/ui/windows/WindowEnd.h"

#include <exception>
#include <functional>

#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/PeerSeam.h"
#include "tessara/platform/ui/windows/WindowTable.h"
#include "tessara/platform/ui/windows/WndAccess.h"

namespace tessara {

namespace {

/// Runs a function on the thread of a window and waits for it; not at all when the window has gone.
void OnThreadOf(HWND hWnd, const std::function<void()>& fnRun) {
    if (const auto record = FindWindow(hWnd)) {
        record->pOwner->Call(fnRun);
    }
}

/// The loop of a thread ends with its main window.
void LeaveMainWindow(const CWnd* pWnd) {
    CWinThread* const pThread = AfxGetThread();
    if (pWnd && pThread && pThread->m_pMainWnd == pWnd) {
        pThread->m_pMainWnd = nullptr;
        PostQuitMessage(0);
    }
}

/// One end: of a window and its children. A window belongs to the end that reached it first; others, that
/// handlers begin meanwhile, leave it alone, so that none is taken away beneath a handler of its own.
class CWindowEnd {
public:
    enum class ELast { say, keep }; ///< whether the object hears PostNcDestroy

    CWindowEnd() : CWindowEnd(NewWindowEnd()) {}
    /// The rest of an end that another thread has begun.
    explicit CWindowEnd(std::uint64_t nEnd) : m_nEnd(nEnd) { ++s_nRunning; }
    ~CWindowEnd() { --s_nRunning; }
    CWindowEnd(const CWindowEnd&) = delete;
    CWindowEnd& operator=(const CWindowEnd&) = delete;

    /// From the window's thread.
    bool Run(HWND hWnd, ELast eLast = ELast::say);
    void TakeAway(HWND hWnd, ELast eLast = ELast::say);
    /// Whether the calling thread is ending a window.
    static bool IsRunningHere() { return s_nRunning > 0; }

private:
    bool Tell(HWND hWnd);
    void Remove(HWND hWnd, ELast eLast);
    /// Keeps the first exception until the end is complete.
    void Guard(const std::function<void()>& fnRun);

    static thread_local int s_nRunning;
    const std::uint64_t m_nEnd;
    std::exception_ptr m_pException;
};

thread_local int CWindowEnd::s_nRunning = 0;

void CWindowEnd::Guard(const std::function<void()>& fnRun) {
    try {
        fnRun();
    } catch (...) {
        m_pException = m_pException ? m_pException : std::current_exception();
    }
}

bool CWindowEnd::Run(HWND hWnd, ELast eLast) {
    if (!Tell(hWnd)) {
        return false;
    }
    TakeAway(hWnd, eLast);
    if (m_pException) {
        std::rethrow_exception(m_pException);
    }
    return true;
}

bool CWindowEnd::Tell(HWND hWnd) {
    if (!BeginWindowEnd(hWnd, m_nEnd)) {
        return false;
    }
    for (const HWND hOwned : OwnedBy(hWnd)) {
        Guard([&] { DestroyTree(hOwned); });
    }
    Guard([&] { CallWindow(hWnd, WM_DESTROY); });
    for (const HWND hChild : ChildrenOf(hWnd)) {
        const auto record = FindWindow(hChild);
        if (record && (record->dwStyle & WS_CHILD)) {
            OnThreadOf(hChild, [&] { Tell(hChild); });
        }
    }
    return true;
}

void CWindowEnd::TakeAway(HWND hWnd, ELast eLast) {
    if (!BeginTakingAway(hWnd, m_nEnd)) {
        return;
    }
    for (const HWND hChild : ChildrenOf(hWnd)) {
        Guard([&] { DestroyTree(hChild); }); // what handlers have made since
        OnThreadOf(hChild, [&] { TakeAway(hChild); });
    }
    const auto record = FindWindow(hWnd);
    if (record && record->pPeer) {
        OnMainThread([&] { DestroyPeer(hWnd); });
    }
    Guard([&] { CallWindow(hWnd, WM_NCDESTROY); });
    Remove(hWnd, eLast);
}

void CWindowEnd::Remove(HWND hWnd, ELast eLast) {
    const auto record = FindWindow(hWnd);
    const auto pKept = RemoveWindow(hWnd);
    CMailbox::OfThisThread()->Nudge(); // the loop of a modal dialog ends with its window
    CWnd* const pWnd = record ? record->pWnd : nullptr;
    LeaveMainWindow(pWnd);
    if (pWnd) {
        pWnd->m_hWnd = nullptr;
    }
    if (pWnd && eLast == ELast::say) {
        Guard([&] { CWndAccess::SayGone(*pWnd); });
    }
}

} // namespace

bool DestroyTree(HWND hWnd) {
    bool bBegun = false;
    OnThreadOf(hWnd, [&] { bBegun = CWindowEnd().Run(hWnd); });
    return bBegun;
}

void DestroyWithObject(HWND hWnd, CWnd& wnd) {
    OnThreadOf(hWnd, [&] {
        RunGuarded([&] { CWindowEnd().Run(hWnd); });
        // Where a handler of its end deletes the object, the rest goes on without it.
        const bool bMine = ChangeWindow(
            hWnd, [&](CWindowRecord& record) { record.pWnd = record.pWnd == &wnd ? nullptr : record.pWnd; });
        if (bMine) {
            LeaveMainWindow(&wnd);
        }
    });
}

void DiscardWindow(HWND hWnd) {
    RunGuarded([&] { CWindowEnd().Run(hWnd, CWindowEnd::ELast::keep); });
}

void DestroyWindowsOfThread() {
    const auto& pOwn = CMailbox::OfThisThread();
    const CMailbox::CRefusal refusal(*pOwn);
    for (const HWND hWnd : WindowsOf(*pOwn)) {
        RunGuarded([&] { DestroyTree(hWnd); });
        const auto record = FindWindow(hWnd);
        if (record && !CWindowEnd::IsRunningHere()) {
            CWindowEnd(record->nEnd).TakeAway(hWnd); // another thread's end has told it and not come back yet
        }
    }
}

void LeaveWindowsToMainThread(const CMailbox& ended) {
    const auto& pMain = CMailbox::OfMainThread();
    for (const HWND hWnd : WindowsOf(ended)) {
        pMain->Send([hWnd] { RunGuarded([&] { DestroyTree(hWnd); }); });
    }
    GiveWindowsTo(ended, pMain);
}

} // namespace tessara
