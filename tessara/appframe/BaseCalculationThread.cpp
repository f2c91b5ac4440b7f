#include "tessara/appframe/BaseCalculationThread.h"

#include <new>
#include <semaphore>
#include <utility>

#include "tessara/appframe/AbortCalculationsThread.h"
#include "tessara/platform/base/Exception.h"

IMPLEMENT_DYNAMIC(CBaseCalculationThread, CWinThread)

HANDLE CBaseCalculationThread::m_hEventCalculationThreadKilled = nullptr;
HANDLE CBaseCalculationThread::s_hEventAbortThreadKilled = nullptr;

namespace {

constexpr int FAILED = -1;

/// There is one event for all objects, and a program starts the next calculation when it is told that one has
/// ended: a moment before that one has closed the event.
std::binary_semaphore g_turn{1};

} // namespace

CBaseCalculationThread::CBaseCalculationThread() = default;

CBaseCalculationThread::CBaseCalculationThread(HWND hNotifyWnd, CDocument* pDocument, int nMode)
    : m_hNotifyWnd(hNotifyWnd), m_pDocument(pDocument), m_nMode(nMode) {}

/// A derived class may have kept ExitInstance to itself.
CBaseCalculationThread::~CBaseCalculationThread() {
    CBaseCalculationThread::ExitInstance();
}

void* CBaseCalculationThread::operator new(std::size_t nSize) {
    return ::operator new(nSize);
}

void CBaseCalculationThread::operator delete(void* p) {
    SetEvent(m_hEventCalculationThreadKilled);
    ::operator delete(p);
}

void CBaseCalculationThread::SignalAbortThreadKilled() {
    SetEvent(s_hEventAbortThreadKilled);
}

BOOL CBaseCalculationThread::InitInstance() {
    g_turn.acquire();
    m_bMyTurn = true;
    s_hEventAbortThreadKilled = CreateEvent(nullptr, FALSE, FALSE, nullptr);
    return TRUE;
}

int CBaseCalculationThread::ExitInstance() {
    if (std::exchange(m_bMyTurn, false)) {
        CloseHandle(std::exchange(s_hEventAbortThreadKilled, nullptr));
        g_turn.release();
    }
    return CWinThread::ExitInstance();
}

int CBaseCalculationThread::Run() {
    StartAbortThread();
    const COutcome outcome = Compute();
    const bool bAborted = IsCalculationAborted();
    m_pDocument = nullptr;
    EndAbortThread();
    if (outcome.bFailed && !bAborted) {
        Report(outcome.strReason);
    }
    const int nResult = bAborted ? FAILED : outcome.nResult;
    ::PostMessage(m_hNotifyWnd, m_nMode == 0 ? WM_CALCULATION_DONE : WM_PREPARATION_DONE,
                  static_cast<unsigned>(nResult), 0);
    return 0;
}

CBaseCalculationThread::COutcome CBaseCalculationThread::Compute() {
    try {
        return {m_nMode == 0 ? Calculate() : Prepare(), false, {}};
    } catch (const std::exception& exception) {
        return {FAILED, true, exception.what()};
    } catch (...) {
        return {FAILED, true, "The calculation has failed."};
    }
}

/// An abort often ends a calculation by an exception; whoever aborts wants to hear nothing of that.
void CBaseCalculationThread::Report(const std::string& strReason) {
    try {
        ProcessWndProcException(CException(strReason), nullptr);
    } catch (const std::exception&) {
        // The end must still be told.
    }
}

void CBaseCalculationThread::StartAbortThread() {
    try {
        auto pThread = std::make_unique<CAbortCalculationsThread>(m_hNotifyWnd, m_nMode);
        // Clear from before the thread runs: what the user does from its first moment on counts.
        pThread->m_bAborted = false;
        if (pThread->CreateThread()) {
            m_pAbortThread = pThread.release(); // deletes itself
        }
    } catch (const std::exception&) {
        // Computed without a dialog.
    }
}

void CBaseCalculationThread::EndAbortThread() {
    if (m_pAbortThread) {
        m_pAbortThread->PostThreadMessage(WM_PROGRESS_CLOSE, 0, 0);
        WaitForSingleObject(s_hEventAbortThreadKilled, INFINITE);
        m_pAbortThread = nullptr;
    }
}

int CBaseCalculationThread::Calculate() {
    return TRUE;
}

int CBaseCalculationThread::Prepare() {
    return TRUE;
}

int CBaseCalculationThread::IsCalculationAborted() {
    return m_pAbortThread && m_pAbortThread->m_bAborted;
}

void CBaseCalculationThread::BeginProgressBar(int nSteps) {
    Tell(WM_PROGRESS_BEGIN, static_cast<unsigned>(nSteps));
}

void CBaseCalculationThread::StepProgressBar() {
    Tell(WM_PROGRESS_STEP);
}

void CBaseCalculationThread::EndProgressBar() {
    Tell(WM_PROGRESS_END);
}

void CBaseCalculationThread::SetProgressBarPercent(double dFraction) {
    std::unique_ptr<double> pFraction(new (std::nothrow) double(dFraction));
    if (Tell(WM_PROGRESS_SETPERCENT, 0, reinterpret_cast<LPARAM>(pFraction.get()))) {
        static_cast<void>(pFraction.release()); // the receiver's
    }
}

BOOL CBaseCalculationThread::Tell(UINT nMessage, WPARAM wParam, LPARAM lParam) {
    return m_pAbortThread && m_pAbortThread->PostThreadMessage(nMessage, wParam, lParam);
}
