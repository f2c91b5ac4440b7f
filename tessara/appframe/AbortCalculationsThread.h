#pragma once

#include <atomic>
#include <chrono>

#include "tessara/appframe/CalculationProgressDialog.h"
#include "tessara/appframe/PreparationsProgressDialog.h"
#include "tessara/platform/ui/threads/WinThread.h"

/// Posted by a calculation to the thread of its progress dialog.
enum ProgressMessage : UINT {
    WM_PROGRESS_BEGIN = 1032, ///< WPARAM: the number of steps
    WM_PROGRESS_END = 1033,   ///< the bar is full and disappears
    WM_PROGRESS_STEP = 1034,  ///< one step is done
    WM_PROGRESS_SETPERCENT =
        1035,                ///< LPARAM: a new double, 0.5 for half of the steps, which the thread deletes
    WM_PROGRESS_CLOSE = 1036 ///< the dialog goes, and with it the thread
};

/// The thread of the progress dialog of a calculation, which makes it and waits for its end (see
/// CBaseCalculationThread).
///
/// It ends with WM_PROGRESS_CLOSE and not before, also without a dialog: the calculation uses the object
/// until then. A dialog that ends earlier, with the application's window, counts as an abort.
class TESSARA_API CAbortCalculationsThread : public CWinThread {
    DECLARE_DYNCREATE(CAbortCalculationsThread)

public:
    /// nMode is the calculation's: it chooses the dialog.
    CAbortCalculationsThread(HWND hParentWnd, int nMode);

    HWND m_hParentWnd = nullptr; ///< whose top-level window owns the dialog
    int m_nMode = 0;
    std::atomic<bool> m_bAborted = false; ///< the user does not want the result any more
    CPreparationsProgressDialog m_preparationsDialog;
    CCalculationProgressDialog m_calculationDialog{m_bAborted};

    BOOL InitInstance() override;
    int Run() override;

    static void* operator new(std::size_t nSize);
    /// Lets the calculation know that the object has gone.
    static void operator delete(void* p);

protected:
    CAbortCalculationsThread() = default;

    void OnBegin(WPARAM wParam, LPARAM lParam);
    void OnEnd(WPARAM wParam, LPARAM lParam);
    void OnStep(WPARAM wParam, LPARAM lParam);
    void OnSetPercent(WPARAM wParam, LPARAM lParam);
    void OnClose(WPARAM wParam, LPARAM lParam);
    void OnShow(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    tessara::CProgressDialog& GetDialog();
    void ShowSoon();
    void ShowNow();

    bool m_bClosed = false;
    bool m_bShowPosted = false;
    std::chrono::steady_clock::time_point m_shown; ///< when the dialog was last brought up to date
};
