#pragma once

#include <memory>
#include <string>

#include "tessara/platform/ui/frames/Document.h"
#include "tessara/platform/ui/threads/WinThread.h"

class CAbortCalculationsThread;

/// Posted to the application's window when a calculation has ended. The lower 32 bits of WPARAM are what
/// Calculate or Prepare has returned; -1 (0xFFFFFFFF) after an abort or an exception.
enum CalculationMessage : UINT {
    WM_CALCULATION_DONE = 1040, ///< Calculate has ended
    WM_PREPARATION_DONE = 1041  ///< Prepare has ended
};

/// A thread that computes something long, behind a dialog that shows how far it is and has a button to abort.
///
/// A program derives its own, computes in Calculate or Prepare, asks IsCalculationAborted often and returns
/// early then. The object deletes itself. One window hears of each end once, after the dialog has gone.
///
/// An exception that comes out of Calculate or Prepare ends the calculation with -1. Unless it was aborted,
/// ProcessWndProcException is told before the window hears of the end: it shows the exception's text.
///
/// The dialog is owned by the application's window. When that ends first, the calculation is aborted; its end
/// is told to nobody then. Where there can be no dialog it runs without one and cannot be aborted.
///
/// One calculation runs at a time: another one that is started meanwhile begins when the first has ended.
///
///     class CSpinodalThread : public CBaseCalculationThread {
///         int Calculate() override {
///             BeginProgressBar(100);
///             for (int i = 0; i < 100 && !IsCalculationAborted(); ++i) { ...; StepProgressBar(); }
///             EndProgressBar();
///             return 1;
///         }
///     };
///     (new CSpinodalThread(pFrame->m_hWnd, pDocument, 0))->CreateThread();
class TESSARA_API CBaseCalculationThread : public CWinThread {
    DECLARE_DYNAMIC(CBaseCalculationThread)

public:
    /// nMode 0 runs Calculate, any other Prepare.
    CBaseCalculationThread(HWND hNotifyWnd, CDocument* pDocument, int nMode);
    ~CBaseCalculationThread() override;

    HWND m_hNotifyWnd = nullptr;
    CDocument* m_pDocument = nullptr; ///< null once the computation has ended
    int m_nMode = 0;
    CAbortCalculationsThread* m_pAbortThread = nullptr; ///< the progress dialog's thread, while it exists

    /// Signalled whenever an object of this class is deleted: who waits for it knows that the thread works on
    /// nothing any more. The program makes and closes it, or leaves it null.
    static HANDLE m_hEventCalculationThreadKilled;

    BOOL InitInstance() override;
    int Run() override;
    int ExitInstance() override;
    virtual int Calculate(); ///< DEFAULT: returns 1
    virtual int Prepare();   ///< DEFAULT: returns 1

    static void* operator new(std::size_t nSize);
    static void operator delete(void* p);

    /// Nonzero when the user does not want the result any more.
    int IsCalculationAborted();

    // The bar of the dialog, from Calculate or Prepare. Nobody is waited for.

    void BeginProgressBar(int nSteps);
    void StepProgressBar();
    void EndProgressBar();
    /// 0.5 is half of the steps that the bar was begun with.
    void SetProgressBarPercent(double dFraction);

protected:
    CBaseCalculationThread();

private:
    friend class CAbortCalculationsThread;
    static void SignalAbortThreadKilled();

    struct COutcome {
        int nResult;
        bool bFailed;
        std::string strReason;
    };
    void StartAbortThread();
    void EndAbortThread();
    COutcome Compute();
    void Report(const std::string& strReason);
    BOOL Tell(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);

    static HANDLE s_hEventAbortThreadKilled;
    bool m_bMyTurn = false;
};
