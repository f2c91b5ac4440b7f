#include "tessara/platform/ui/frames/WinApp.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <charconv>
#include <filesystem>
#include <utility>

#include "tessara/platform/files/ModulePath.h"
#include "tessara/platform/ui/dialogs/FileQuestion.h"
#include "tessara/platform/ui/dialogs/MessageBox.h"
#include "tessara/platform/ui/frames/AppSeam.h"
#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/Document.h"
#include "tessara/platform/ui/frames/FrameSeam.h"
#include "tessara/platform/ui/frames/RecentFiles.h"
#include "tessara/platform/ui/resources/StandardStrings.h"
#include "tessara/platform/ui/threads/Loop.h"
#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/windows/WindowEnd.h"
#include "tessara/platform/ui/windows/Wnd.h"

IMPLEMENT_DYNAMIC(CWinApp, CWinThread)

namespace {

std::atomic<CWinApp*> g_pApp = nullptr; ///< threads may ask while the program ends

CString ExecutableName() {
    std::array<char, 4096> path{};
    GetModuleFileName(nullptr, path.data(), static_cast<DWORD>(path.size()));
    const CString strPath = path.data();
    return strPath.Mid(strPath.ReverseFind('/') + 1);
}

} // namespace

namespace tessara {

void RunIdle() {
    if (CWinApp* const pApp = g_pApp) {
        pApp->OnIdle(0);
    } else {
        UpdateFrames();
    }
}

} // namespace tessara

CWinApp* AfxGetApp() {
    return g_pApp;
}

CWinApp::CWinApp(const char* lpszAppName)
    : m_pszAppName(""), m_nCmdShow(SW_SHOWNORMAL), m_strAppName(lpszAppName ? lpszAppName : "") {
    m_pszAppName = m_strAppName.c_str();
    m_nThreadID = GetCurrentThreadId();
    m_bAutoDelete = FALSE;
    g_pApp = this;
    tessara::EnterMainThread(*this);
}

CWinApp::~CWinApp() {
    tessara::LeaveMainThread(*this);
    CWinApp* pThis = this;
    g_pApp.compare_exchange_strong(pThis, nullptr);
}

BOOL CWinApp::InitInstance() {
    return TRUE;
}

int CWinApp::Run() {
    m_nExitCode = CWinThread::Run();
    return m_nExitCode;
}

int CWinApp::ExitInstance() {
    tessara::DestroyWindowsOfThread();
    tessara::FinishDestroying();
    return m_nExitCode;
}

BOOL CWinApp::OnIdle(LONG) {
    tessara::UpdateFrames();
    return FALSE;
}

void CWinApp::DoWaitCursor(int nCode) {
    if (nCode > 0) {
        BeginWaitCursor();
    } else if (nCode < 0) {
        EndWaitCursor();
    }
}

void CWinApp::TakeArguments(std::vector<CString> arguments) {
    m_arguments = std::move(arguments);
    m_lpCmdLine.Empty();
    for (const CString& strArgument : m_arguments) {
        m_lpCmdLine += (m_lpCmdLine.IsEmpty() ? CString() : CString(" ")) + strArgument;
    }
    if (m_strAppName.empty()) {
        const CString strTitle = tessara::StandardString(AFX_IDS_APP_TITLE);
        m_strAppName = (strTitle.IsEmpty() ? ExecutableName() : strTitle).View();
        m_pszAppName = m_strAppName.c_str();
    }
    tessara::SetApplicationName(m_pszAppName);
}

void CWinApp::ParseCommandLine(CCommandLineInfo& info) {
    for (std::size_t i = 0; i < m_arguments.size(); ++i) {
        const CString& strArgument = m_arguments[i];
        const int nDashes = strArgument.Left(2) == "--" ? 2 : strArgument.Left(1) == "-" ? 1 : 0;
        const bool bFlag = nDashes > 0 && strArgument.GetLength() > nDashes;
        info.ParseParam(bFlag ? strArgument.Mid(nDashes) : strArgument, bFlag, i + 1 == m_arguments.size());
    }
}

BOOL CWinApp::ProcessShellCommand(CCommandLineInfo& info) {
    switch (info.m_nShellCommand) {
    case CCommandLineInfo::FileNew:
        OnFileNew();
        return m_pMainWnd != nullptr;
    case CCommandLineInfo::FileOpen:
        return OpenDocumentFile(info.m_strFileName) != nullptr;
    default:
        return TRUE;
    }
}

IMPLEMENT_DYNAMIC(CCommandLineInfo, CObject)

void CCommandLineInfo::ParseParam(const char* pszParam, BOOL bFlag, BOOL) {
    if (!bFlag && m_strFileName.IsEmpty()) {
        m_strFileName = pszParam;
        m_nShellCommand = FileOpen;
    }
}

void CWinApp::SetRegistryKey(const char* pszRegistryKey) {
    m_strRegistryKey = pszRegistryKey ? pszRegistryKey : "";
    m_pszRegistryKey = pszRegistryKey ? m_strRegistryKey.c_str() : nullptr;
}

tessara::CSettings CWinApp::GetSettings() const {
    return {m_pszRegistryKey, m_pszAppName};
}

UINT CWinApp::GetProfileInt(const char* pszSection, const char* pszEntry, int nDefault) const {
    const CString strValue = GetProfileString(pszSection, pszEntry);
    const std::string_view str = strValue.View();
    int nValue = nDefault;
    const auto [pEnd, error] = std::from_chars(str.data(), str.data() + str.size(), nValue);
    return static_cast<UINT>(error == std::errc() && pEnd == str.data() + str.size() ? nValue : nDefault);
}

CString CWinApp::GetProfileString(const char* pszSection, const char* pszEntry,
                                  const char* pszDefault) const {
    const auto value = GetSettings().Read(pszSection, pszEntry);
    return value ? tessara::SettingText(*value) : CString(pszDefault);
}

BOOL CWinApp::WriteProfileInt(const char* pszSection, const char* pszEntry, int nValue) {
    return GetSettings().Write(pszSection, pszEntry, static_cast<std::uint32_t>(nValue));
}

BOOL CWinApp::WriteProfileString(const char* pszSection, const char* pszEntry, const char* pszValue) {
    return pszValue ? GetSettings().Write(pszSection, pszEntry, std::string(pszValue))
                    : GetSettings().Remove(pszSection, pszEntry);
}

void CWinApp::LoadStdProfileSettings(UINT nMaxMRU) {
    constexpr UINT MAX_FILES = ID_FILE_MRU_LAST - ID_FILE_MRU_FILE1 + 1;
    m_pRecentFiles = std::make_unique<tessara::CRecentFiles>(GetSettings(), std::min(nMaxMRU, MAX_FILES));
}

void CWinApp::AddDocTemplate(CDocTemplate* pTemplate) {
    m_templates.emplace_back(pTemplate);
}

CDocTemplate* CWinApp::FindTemplate(const CString& strPath) const {
    for (const auto& pTemplate : m_templates) {
        CString strExtension;
        if (pTemplate->GetDocString(strExtension, CDocTemplate::filterExt) &&
            strPath.Right(strExtension.GetLength()).CompareNoCase(strExtension) == 0) {
            return pTemplate.get();
        }
    }
    return m_templates.empty() ? nullptr : m_templates.front().get();
}

CDocument* CWinApp::OpenDocumentFile(const char* lpszFileName) {
    CDocTemplate* const pTemplate = FindTemplate(lpszFileName);
    return pTemplate ? pTemplate->OpenDocumentFile(lpszFileName) : nullptr;
}

void CWinApp::AddToRecentFileList(const char* lpszPathName) {
    if (m_pRecentFiles && lpszPathName && *lpszPathName) {
        m_pRecentFiles->Add(lpszPathName);
    }
}

const std::vector<CString>& CWinApp::GetRecentFiles() const {
    static const std::vector<CString> s_none;
    return m_pRecentFiles ? m_pRecentFiles->GetPaths() : s_none;
}

BOOL CWinApp::SaveAllModified() {
    return std::all_of(m_templates.begin(), m_templates.end(),
                       [](const auto& pTemplate) { return pTemplate->SaveAllModified() != 0; });
}

void CWinApp::CloseAllDocuments(BOOL bEndSession) {
    for (const auto& pTemplate : m_templates) {
        pTemplate->CloseAllDocuments(bEndSession);
    }
}

void CWinApp::OnFileNew() {
    if (!m_templates.empty()) {
        m_templates.front()->OpenDocumentFile(nullptr);
    }
}

void CWinApp::OnFileOpen() {
    CString strPath;
    CDocTemplate* const pTemplate = m_templates.empty() ? nullptr : m_templates.front().get();
    if (tessara::AskFileName(strPath, AFX_IDS_OPENFILE, pTemplate)) {
        OpenDocumentFile(strPath);
    }
}

void CWinApp::OnAppExit() {
    if (m_pMainWnd) {
        m_pMainWnd->SendMessage(WM_CLOSE);
    }
}

void CWinApp::OnOpenRecentFile(UINT nID) {
    const std::size_t nFile = nID - ID_FILE_MRU_FILE1;
    if (nFile >= GetRecentFiles().size()) {
        return;
    }
    const CString strPath = GetRecentFiles()[nFile];
    std::error_code error;
    if (!OpenDocumentFile(strPath) && !std::filesystem::exists(strPath.View(), error)) {
        m_pRecentFiles->Remove(strPath);
    }
}

BEGIN_MESSAGE_MAP(CWinApp, CWinThread)
ON_COMMAND(ID_APP_EXIT, OnAppExit)
ON_COMMAND_RANGE(ID_FILE_MRU_FILE1, ID_FILE_MRU_LAST, OnOpenRecentFile)
END_MESSAGE_MAP()

namespace {

/// Runs a part of the program; shows what reaches it and then returns false.
template <class FUNCTION>
bool RunShown(FUNCTION fnRun) {
    try {
        fnRun();
        return true;
    } catch (const std::exception& exception) {
        AfxMessageBox(exception.what(), MB_OK | MB_ICONSTOP);
        return false;
    }
}

/// The time in which other threads' calls are served whatever the main thread does.
class CMainLoopScope {
public:
    CMainLoopScope() { tessara::CMailbox::OfMainThread()->SetLoopEnded(false); }
    ~CMainLoopScope() { tessara::CMailbox::OfMainThread()->SetLoopEnded(true); }
    CMainLoopScope(const CMainLoopScope&) = delete;
    CMainLoopScope& operator=(const CMainLoopScope&) = delete;
};

} // namespace

int AfxRunApplication(int argc, char** argv) {
    CWinApp* const pApp = AfxGetApp();
    if (!pApp) {
        return 1;
    }
    const CMainLoopScope scope;
    if (!RunShown([&] { pApp->TakeArguments(tessara::StartWindowSystem(argc, argv)); })) {
        return 1;
    }
    int nCode = 1;
    const bool bRun = RunShown([&] {
        if (pApp->InitApplication() && pApp->InitInstance()) {
            pApp->Run();
        }
    });
    tessara::TakeExitCode(); // dialogs of ExitInstance are no longer quit
    const bool bLeft = RunShown([&] { nCode = pApp->ExitInstance(); });
    return bRun && bLeft ? nCode : 1;
}
