#include "tessara/appframe/AbortCalculationsThread.h"

#include <memory>
#include <new>

#include "tessara/appframe/BaseCalculationThread.h"
#include "tessara/platform/ui/windows/WindowTable.h"

IMPLEMENT_DYNCREATE(CAbortCalculationsThread, CWinThread)

namespace {

/// The thread's own: what has been counted is to be seen.
constexpr UINT WM_PROGRESS_SHOW = 1037;

/// Whether a window has gone, or its top-level window is about to.
bool IsEnding(HWND hWnd) {
    const auto top = tessara::FindWindow(tessara::TopLevelOf(hWnd));
    return !top || top->nEnd != 0;
}

} // namespace

CAbortCalculationsThread::CAbortCalculationsThread(HWND hParentWnd, int nMode)
    : m_hParentWnd(hParentWnd), m_nMode(nMode) {}

void* CAbortCalculationsThread::operator new(std::size_t nSize) {
    return ::operator new(nSize);
}

void CAbortCalculationsThread::operator delete(void* p) {
    CBaseCalculationThread::SignalAbortThreadKilled();
    ::operator delete(p);
}

tessara::CProgressDialog& CAbortCalculationsThread::GetDialog() {
    if (m_nMode != 0) {
        return m_preparationsDialog;
    }
    return m_calculationDialog;
}

BOOL CAbortCalculationsThread::InitInstance() {
    try {
        if (GetDialog().Open(m_hParentWnd)) {
            m_pMainWnd = &GetDialog();
        }
    } catch (const std::exception&) {
        // Whatever keeps the dialog from being there does not keep the calculation from its end.
    }
    if (!m_pMainWnd && m_hParentWnd && IsEnding(m_hParentWnd)) {
        m_bAborted = true;
    }
    return TRUE;
}

int CAbortCalculationsThread::Run() {
    CWinThread::Run();
    while (!m_bClosed) {
        m_bAborted = true;
        CWinThread::Run();
    }
    return 0;
}

// Without a dialog, or when that has gone with its owner, the main window is null and nothing is to be done.

void CAbortCalculationsThread::OnBegin(WPARAM wParam, LPARAM) {
    if (m_pMainWnd) {
        GetDialog().Begin(static_cast<int>(wParam));
    }
}

void CAbortCalculationsThread::OnEnd(WPARAM, LPARAM) {
    if (m_pMainWnd) {
        GetDialog().End();
    }
}

void CAbortCalculationsThread::OnStep(WPARAM, LPARAM) {
    if (m_pMainWnd) {
        GetDialog().Step();
        ShowSoon();
    }
}

void CAbortCalculationsThread::OnSetPercent(WPARAM, LPARAM lParam) {
    const std::unique_ptr<double> pFraction{reinterpret_cast<double*>(lParam)};
    if (m_pMainWnd && pFraction) {
        GetDialog().SetPercent(*pFraction);
        ShowSoon();
    }
}

void CAbortCalculationsThread::OnClose(WPARAM, LPARAM) {
    m_bClosed = true;
    if (!GetDialog().DestroyWindow()) {
        PostQuitMessage(0);
    }
}

/// To show something is to wait for the main thread. So a calculation that makes small steps is not behind
/// its messages for long, they are counted meanwhile, and what they come to is shown when there are no more
/// of them, but some times a second at least.
void CAbortCalculationsThread::ShowSoon() {
    constexpr auto AT_LEAST_EVERY = std::chrono::milliseconds(40);
    if (std::chrono::steady_clock::now() - m_shown >= AT_LEAST_EVERY) {
        ShowNow();
    } else if (!m_bShowPosted) {
        m_bShowPosted = PostThreadMessage(WM_PROGRESS_SHOW, 0, 0);
    }
}

void CAbortCalculationsThread::OnShow(WPARAM, LPARAM) {
    m_bShowPosted = false;
    ShowNow();
}

void CAbortCalculationsThread::ShowNow() {
    GetDialog().ShowProgress();
    m_shown = std::chrono::steady_clock::now();
}

BEGIN_MESSAGE_MAP(CAbortCalculationsThread, CWinThread)
ON_THREAD_MESSAGE(WM_PROGRESS_BEGIN, OnBegin)
ON_THREAD_MESSAGE(WM_PROGRESS_END, OnEnd)
ON_THREAD_MESSAGE(WM_PROGRESS_STEP, OnStep)
ON_THREAD_MESSAGE(WM_PROGRESS_SETPERCENT, OnSetPercent)
ON_THREAD_MESSAGE(WM_PROGRESS_CLOSE, OnClose)
ON_THREAD_MESSAGE(WM_PROGRESS_SHOW, OnShow)
END_MESSAGE_MAP()
