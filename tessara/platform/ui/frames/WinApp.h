#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tessara/platform/base/String.h"
#include "tessara/platform/ui/frames/CommandLine.h"
#include "tessara/platform/ui/threads/WinThread.h"
#include "tessara/platform/ui/windows/Pointer.h"

class CDocTemplate;
class CDocument;
class CFrameWnd;

namespace tessara {
class CRecentFiles;
class CSettings;
} // namespace tessara

/// The program: its name, settings, documents and main loop. A program derives its own, makes one object of
/// it before AfxRunApplication, and its main window in InitInstance.
///
///     class CMyApp : public CWinApp {
///         BOOL InitInstance() override {
///             SetRegistryKey("My Institute");
///             LoadStdProfileSettings();
///             AddDocTemplate(new CSingleDocTemplate(IDR_MAINFRAME, RUNTIME_CLASS(CMyDoc),
///                                                   RUNTIME_CLASS(CMainFrame), RUNTIME_CLASS(CMyView)));
///             CCommandLineInfo info;
///             ParseCommandLine(info);
///             return ProcessShellCommand(info);
///         }
///     };
///     CMyApp theApp("Spinodals");
///     int main(int argc, char* argv[]) { return AfxRunApplication(argc, argv); }
class TESSARA_API CWinApp : public CWinThread {
    DECLARE_DYNAMIC(CWinApp)

public:
    /// Makes this object the program's; the thread that does so is the main thread, unless there are windows
    /// or waits of another already. A null name is the string resource AFX_IDS_APP_TITLE or else the
    /// executable's name, once AfxRunApplication runs.
    explicit CWinApp(const char* lpszAppName = nullptr);
    ~CWinApp() override;

    const char* m_pszAppName;               ///< never null
    const char* m_pszRegistryKey = nullptr; ///< the registry key string, or null
    CString m_lpCmdLine;                    ///< the arguments, joined by blanks
    int m_nCmdShow;                         ///< how the main window is first shown, a ShowCommand

    // Life

    virtual BOOL InitApplication() { return TRUE; }
    /// Makes the main window; zero ends the program. The default returns nonzero.
    BOOL InitInstance() override;
    /// The main loop, until the main window is destroyed or PostQuitMessage is called.
    int Run() override;
    /// Called at the end; returns the program's exit code. The default closes what is left of windows.
    int ExitInstance() override;
    /// Called before the program waits for events. The default updates buttons and panes of the frames.
    virtual BOOL OnIdle(LONG nCount);
    /// Shows or takes away the wait cursor: 1, -1.
    virtual void DoWaitCursor(int nCode);

    // Command line

    void ParseCommandLine(CCommandLineInfo& info);
    BOOL ProcessShellCommand(CCommandLineInfo& info);

    // Settings: the key "registry key string\application's name\section" of the registry (Registry.h), which
    // is a file under the user's configuration folder; docs/settings.md describes it. Failures are silent.

    void SetRegistryKey(const char* pszRegistryKey);
    /// A number, also one that is written as a string.
    UINT GetProfileInt(const char* pszSection, const char* pszEntry, int nDefault) const;
    CString GetProfileString(const char* pszSection, const char* pszEntry,
                             const char* pszDefault = nullptr) const;
    /// Zero where the settings cannot be written.
    BOOL WriteProfileInt(const char* pszSection, const char* pszEntry, int nValue);
    /// A null value removes the entry. Zero where the settings cannot be written.
    BOOL WriteProfileString(const char* pszSection, const char* pszEntry, const char* pszValue);
    /// Reads the list of recent files; without it there is none.
    void LoadStdProfileSettings(UINT nMaxMRU = 4);

    // Documents

    /// The template belongs to the application from now on.
    void AddDocTemplate(CDocTemplate* pTemplate);
    /// Opens a file with the template whose extension it has, or the first; null when that failed.
    virtual CDocument* OpenDocumentFile(const char* lpszFileName);
    virtual void AddToRecentFileList(const char* lpszPathName);
    const std::vector<CString>& GetRecentFiles() const;
    virtual BOOL SaveAllModified();
    void CloseAllDocuments(BOOL bEndSession);

    // Pointers and icons

    HCURSOR LoadCursor(UINT nID) const { return ::LoadCursor(nID); }
    HCURSOR LoadStandardCursor(UINT nID) const { return ::LoadCursor(nID); }

    // Commands for message maps of programs

    void OnFileNew();
    void OnFileOpen();
    void OnAppExit();

protected:
    void OnOpenRecentFile(UINT nID);
    DECLARE_MESSAGE_MAP()

private:
    friend int AfxRunApplication(int argc, char** argv);
    void TakeArguments(std::vector<CString> arguments);
    CDocTemplate* FindTemplate(const CString& strPath) const;
    tessara::CSettings GetSettings() const;

    std::string m_strAppName;
    std::string m_strRegistryKey;
    std::vector<CString> m_arguments;
    std::vector<std::unique_ptr<CDocTemplate>> m_templates;
    std::unique_ptr<tessara::CRecentFiles> m_pRecentFiles;
    int m_nExitCode = 0;
};

/// The program's object, or null.
TESSARA_API CWinApp* AfxGetApp();

/// Runs the program whose CWinApp exists: takes the options of the window system out of the command line,
/// calls InitApplication and InitInstance and, unless they return zero, Run, then ExitInstance, and returns
/// its code. An exception that reaches it is shown, and the code is 1, with ExitInstance in between where
/// InitApplication was called; so too, before that, where there can be no windows (see CGraphicsException),
/// which AfxMessageBox then says on standard error. Afterwards other threads' calls to this one are dropped
/// while it does not wait itself.
TESSARA_API int AfxRunApplication(int argc, char** argv);
