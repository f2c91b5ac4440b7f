#include "tessara/platform/ui/threads/WinThread.h"

#include <atomic>
#include <map>
#include <system_error>
#include <thread>
#include <utility>

#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/threads/Dispatch.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/threads/MainPump.h"
#include "tessara/platform/ui/windows/WindowEnd.h"

IMPLEMENT_DYNAMIC(CWinThread, CCmdTarget)

struct CWinThread::CState {
    std::shared_ptr<tessara::CMailbox> pMailbox; ///< while the thread runs; guarded by the shared lock
    bool bStarted = false;                       ///< the thread has run; guarded likewise
};

/// Opens a thread's parts to the functions that run it.
struct CThreadAccess {
    static void Enter(CWinThread& thread);
    static void RunBody(CWinThread& thread);
    static void Main(CWinThread* pThread);
    static void UseMailbox(CWinThread& thread, const std::shared_ptr<tessara::CMailbox>& pMailbox) {
        thread.m_pState->pMailbox = pMailbox;
        thread.m_pState->bStarted = true;
    }
    static BOOL Dispatch(CWinThread& thread, UINT nMessage, AFX_MESSAGE& words) {
        return tessara::DispatchThroughMap(thread, thread.GetMessageMap(),
                                           {WM_THREAD_MESSAGE_ENTRY, nMessage, 0}, words);
    }
};

namespace tessara {

namespace {

/// What one thread knows of itself.
struct CThisThread {
    CWinThread* pThread = nullptr;
    bool bQuit = false;
    int nExitCode = 0;
};

thread_local CThisThread t_thread;

std::atomic<DWORD> g_nLastThread = 0;
thread_local DWORD t_nThread = ++g_nLastThread;

/// The mailboxes of running threads by number. Guarded by the shared lock.
std::map<DWORD, std::shared_ptr<CMailbox>>& Threads() {
    static auto* const s_pThreads = new std::map<DWORD, std::shared_ptr<CMailbox>>;
    return *s_pThreads;
}

std::shared_ptr<CMailbox> MailboxOf(DWORD nThread) {
    const std::lock_guard lock(SharedLock());
    const auto it = Threads().find(nThread);
    return it == Threads().end() ? nullptr : it->second;
}

} // namespace

void DispatchThreadMessage(CWinThread& thread, UINT nMessage, AFX_MESSAGE& words) {
    if (nMessage == WM_QUIT) {
        PostQuitMessage(static_cast<int>(words.wParam));
        return;
    }
    try {
        CThreadAccess::Dispatch(thread, nMessage, words);
    } catch (const std::exception& exception) {
        thread.ProcessWndProcException(exception, nullptr);
    }
}

void RunGuarded(const std::function<void()>& fnRun) {
    try {
        fnRun();
    } catch (const std::exception& exception) {
        if (t_thread.pThread) {
            t_thread.pThread->ProcessWndProcException(exception, nullptr);
        }
    }
}

void EnterMainThread(CWinThread& thread) {
    if (!HasMainLoop()) {
        CMailbox::BecomeMainThread();
    }
    const auto& pMailbox = CMailbox::OfMainThread();
    pMailbox->SetLoopEnded(false);
    t_thread.pThread = &thread;
    const std::lock_guard lock(SharedLock());
    Threads()[t_nThread] = pMailbox;
    CThreadAccess::UseMailbox(thread, pMailbox);
}

void LeaveMainThread(const CWinThread& thread) {
    if (t_thread.pThread == &thread) {
        t_thread.pThread = nullptr;
    }
}

bool RunLoopUntil(const std::function<bool()>& fnEnd) {
    const auto& pMailbox = CMailbox::OfThisThread();
    if (CMailbox::IsMainThread()) {
        const CMailbox::CServing serving(*pMailbox);
        RunMainLoop(EMainLoop::everything, [&] { return t_thread.bQuit || fnEnd(); });
        return !t_thread.bQuit;
    }
    for (;;) {
        pMailbox->ForgetNudge(); // before the question, so that none after it is missed
        if (t_thread.bQuit || fnEnd()) {
            return !t_thread.bQuit;
        }
        if (const auto message = pMailbox->Take()) {
            DispatchPosted(*message);
        } else {
            pMailbox->WaitUntil([&] { return pMailbox->HasPosted() || pMailbox->IsNudged(); });
        }
    }
}

int TakeExitCode() {
    t_thread.bQuit = false;
    return t_thread.nExitCode;
}

} // namespace tessara

void CThreadAccess::Enter(CWinThread& thread) {
    tessara::t_thread.pThread = &thread;
    thread.m_nThreadID = tessara::t_nThread;
    const auto& pMailbox = tessara::CMailbox::OfThisThread();
    const std::lock_guard lock(tessara::SharedLock());
    tessara::Threads()[thread.m_nThreadID] = pMailbox;
    UseMailbox(thread, pMailbox);
    tessara::CMailbox::WakeAll();
}

void CThreadAccess::RunBody(CWinThread& thread) {
    if (thread.m_pfnProcedure) {
        tessara::RunGuarded([&] { thread.m_pfnProcedure(thread.m_pParam); });
        return;
    }
    tessara::RunGuarded([&] {
        if (thread.InitInstance()) {
            thread.Run();
        }
    });
    tessara::TakeExitCode(); // dialogs of ExitInstance are no longer quit
    tessara::RunGuarded([&] { thread.ExitInstance(); });
}

void CThreadAccess::Main(CWinThread* pThread) {
    Enter(*pThread);
    RunBody(*pThread);
    tessara::DestroyWindowsOfThread();
    const HANDLE hThread = pThread->m_hThread;
    {
        const std::lock_guard lock(tessara::SharedLock());
        tessara::Threads().erase(pThread->m_nThreadID);
        pThread->m_pState->pMailbox = nullptr;
    }
    tessara::CMailbox::OfThisThread()->Close();
    tessara::t_thread.pThread = nullptr;
    if (pThread->m_bAutoDelete) {
        delete pThread; // signals hThread before it closes it
    } else {
        SetEvent(hThread);
    }
}

CWinThread::CWinThread() : m_pState(std::make_shared<CState>()) {}

CWinThread::CWinThread(AFX_THREADPROC pfnProcedure, void* pParam)
    : m_pfnProcedure(pfnProcedure), m_pParam(pParam), m_pState(std::make_shared<CState>()) {}

CWinThread::~CWinThread() {
    if (m_hThread) {
        SetEvent(m_hThread);
        CloseHandle(m_hThread);
    }
}

BOOL CWinThread::CreateThread(DWORD, UINT) {
    if (m_hThread) {
        return FALSE;
    }
    m_hThread = CreateEvent(nullptr, TRUE, FALSE, nullptr);
    const auto pState = m_pState; // the object may be gone before this function ends
    try {
        std::thread(&CThreadAccess::Main, this).detach();
    } catch (const std::system_error&) {
        CloseHandle(std::exchange(m_hThread, nullptr));
        return FALSE;
    }
    tessara::CMailbox::OfThisThread()->WaitUntil([&] { return pState->bStarted; });
    return TRUE;
}

BOOL CWinThread::PostThreadMessage(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    std::shared_ptr<tessara::CMailbox> pMailbox;
    {
        const std::lock_guard lock(tessara::SharedLock());
        pMailbox = m_pState->pMailbox;
    }
    return pMailbox && pMailbox->Post({nullptr, nMessage, wParam, lParam});
}

BOOL CWinThread::InitInstance() {
    return FALSE;
}

int CWinThread::Run() {
    tessara::RunLoopUntil([] { return false; });
    return tessara::TakeExitCode();
}

int CWinThread::ExitInstance() {
    return 0;
}

BOOL CWinThread::PreTranslateMessage(MSG*) {
    return FALSE;
}

LRESULT CWinThread::ProcessWndProcException(const std::exception& exception, const MSG*) {
    AfxMessageBox(exception.what(), MB_OK | MB_ICONSTOP);
    return 0;
}

BOOL CWinThread::OnCmdMsg(UINT nID, UINT nCode, void* pExtra) {
    return CCmdTarget::OnCmdMsg(nID, nCode, pExtra);
}

BEGIN_MESSAGE_MAP(CWinThread, CCmdTarget)
END_MESSAGE_MAP()

CWinThread* AfxBeginThread(AFX_THREADPROC pfnProcedure, void* pParam) {
    auto pThread = std::make_unique<CWinThread>(pfnProcedure, pParam);
    return pThread->CreateThread() ? pThread.release() : nullptr;
}

CWinThread* AfxBeginThread(CRuntimeClass* pThreadClass) {
    std::unique_ptr<CObject> pObject(pThreadClass->CreateObject());
    if (!pObject || !pObject->IsKindOf(RUNTIME_CLASS(CWinThread))) {
        return nullptr;
    }
    auto* pThread = static_cast<CWinThread*>(pObject.get());
    return pThread->CreateThread() ? static_cast<CWinThread*>(pObject.release()) : nullptr;
}

CWinThread* AfxGetThread() {
    return tessara::t_thread.pThread;
}

CWnd* AfxGetMainWnd() {
    CWinThread* const pThread = AfxGetThread();
    return pThread ? pThread->m_pMainWnd : nullptr;
}

DWORD GetCurrentThreadId() {
    return tessara::t_nThread;
}

void PostQuitMessage(int nExitCode) {
    tessara::t_thread.bQuit = true;
    tessara::t_thread.nExitCode = nExitCode;
    tessara::CMailbox::OfThisThread()->Nudge();
}

BOOL PostThreadMessage(DWORD nThreadID, UINT nMessage, WPARAM wParam, LPARAM lParam) {
    const auto pMailbox = tessara::MailboxOf(nThreadID);
    return pMailbox && pMailbox->Post({nullptr, nMessage, wParam, lParam});
}
