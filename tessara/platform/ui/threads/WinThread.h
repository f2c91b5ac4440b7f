#pragma once

#include <memory>

#include "tessara/platform/ui/threads/Sync.h"
#include "tessara/platform/ui/windows/Wnd.h"

class CWinThread;

/// The function of a worker thread.
using AFX_THREADPROC = UINT (*)(void* pParam);

/// A thread: a worker that runs a function or an overridden Run, or one with a message loop that owns
/// dialogs.
///
/// Made with new and started with CreateThread. InitInstance, Run and ExitInstance run on the new thread; the
/// message loop of Run ends with PostQuitMessage or when the main window is destroyed. With m_bAutoDelete
/// (DEFAULT: set) the object deletes itself at the end.
class TESSARA_API CWinThread : public CCmdTarget {
    DECLARE_DYNAMIC(CWinThread)

public:
    CWinThread();
    CWinThread(AFX_THREADPROC pfnProcedure, void* pParam);
    ~CWinThread() override;

    BOOL m_bAutoDelete = TRUE;
    HANDLE m_hThread = nullptr; ///< signalled when the thread has ended; closed with the object
    DWORD m_nThreadID = 0;
    CWnd* m_pMainWnd = nullptr; ///< destroying this window ends the message loop

    /// Starts the thread. Returns zero when the system refuses; the object then stays with the caller.
    BOOL CreateThread(DWORD dwCreateFlags = 0, UINT nStackSize = 0);
    /// Puts a message into the thread's queue; handled by ON_THREAD_MESSAGE. Zero when the thread does not
    /// run.
    BOOL PostThreadMessage(UINT nMessage, WPARAM wParam, LPARAM lParam);

    virtual BOOL InitInstance(); ///< zero ends the thread; the default returns 0
    virtual int Run();           ///< the message loop; returns the code of PostQuitMessage
    virtual int ExitInstance();
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    /// A handler of a message that no caller of this program waits for has thrown. The default shows the
    /// exception's text in a message box on the main thread.
    virtual LRESULT ProcessWndProcException(const std::exception& exception, const MSG* pMsg);
    CWnd* GetMainWnd() const { return m_pMainWnd; }

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

protected:
    DECLARE_MESSAGE_MAP()

private:
    friend struct CThreadAccess;
    AFX_THREADPROC m_pfnProcedure = nullptr;
    void* m_pParam = nullptr;
    struct CState;
    std::shared_ptr<CState> m_pState;
};

/// Starts a worker thread on a function. The object deletes itself.
TESSARA_API CWinThread* AfxBeginThread(AFX_THREADPROC pfnProcedure, void* pParam);
/// Makes an object of a class creatable by name and starts it. Null when that fails.
TESSARA_API CWinThread* AfxBeginThread(CRuntimeClass* pThreadClass);

/// The object of the calling thread: the application on the main thread; null on threads that it did not
/// start.
TESSARA_API CWinThread* AfxGetThread();
TESSARA_API DWORD GetCurrentThreadId();
/// The main window of the calling thread, or null.
TESSARA_API CWnd* AfxGetMainWnd();
/// Ends the message loop of the calling thread.
TESSARA_API void PostQuitMessage(int nExitCode);
TESSARA_API BOOL PostThreadMessage(DWORD nThreadID, UINT nMessage, WPARAM wParam, LPARAM lParam);
