#include "cli/view/ViewerApp.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cli/view/ViewerAboutDialog.h"
#include "cli/view/ViewerFrame.h"
#include "cli/view/ViewerPlacement.h"
#include "cli/view/ViewerResources.h"
#include "tessara/platform/base/Exception.h"

namespace tessara {

namespace {

constexpr UINT WM_SCREENSHOT = WM_USER;
constexpr UINT MAX_RECENT_FILES = 6;

/// The frame that a window belongs to, also as a read-out that the frame's view owns; null for none.
CViewerFrame* FrameOf(CWnd* pWnd) {
    while (pWnd && !dynamic_cast<CViewerFrame*>(pWnd)) {
        pWnd = pWnd->GetParent();
    }
    return dynamic_cast<CViewerFrame*>(pWnd);
}

} // namespace

CViewerApp& TheViewer() {
    return dynamic_cast<CViewerApp&>(*AfxGetApp());
}

CViewerApp::CViewerApp(CViewerStart start) : CWinApp("Tessara"), m_start(std::move(start)) {}

CViewerApp::~CViewerApp() = default;

void CViewerApp::RethrowFailure() const {
    if (m_pFailure) {
        std::rethrow_exception(m_pFailure);
    }
}

BOOL CViewerApp::InitInstance() {
    AddViewerResources();
    SetRegistryKey("Tessara");
    try {
        if (m_start.strScreenshot.empty()) {
            StartWithFile();
        } else {
            StartForScreenshot();
        }
    } catch (...) {
        m_pFailure = std::current_exception();
        return FALSE;
    }
    return TRUE;
}

CViewerFrame& CViewerApp::NewFrame() {
    CCreateContext context{RUNTIME_CLASS(CViewerView), nullptr, nullptr};
    auto* const pFrame = new CViewerFrame; // deletes itself
    if (!pFrame->LoadFrame(IDR_VIEWER, WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE, nullptr, &context)) {
        AfxThrowResourceException();
    }
    m_frames.push_back(pFrame);
    if (!m_pMainWnd) {
        m_pMainWnd = pFrame;
    }
    return *pFrame;
}

void CViewerApp::ShowFrame(CViewerFrame& frame) {
    CViewerPlacement(*this).Restore(frame, static_cast<int>(m_frames.size()) - 1);
    frame.InitialUpdateFrame(nullptr, TRUE);
}

void CViewerApp::StartWithFile() {
    LoadStdProfileSettings(MAX_RECENT_FILES);
    CViewerFrame& frame = NewFrame();
    ShowFrame(frame);
    if (m_start.size) {
        frame.ShowWindow(SW_RESTORE);
        frame.SetWindowPos(nullptr, 0, 0, m_start.size->GetWidth(), m_start.size->GetHeight(), SWP_NOMOVE);
    }
    frame.OpenFile(m_start.source);
}

void CViewerApp::StartForScreenshot() {
    std::unique_ptr<CShownPlot> pPlot = Open(m_start.source); // before there is a window
    CViewerFrame& frame = NewFrame();
    if (m_start.size) {
        frame.SetWindowPos(nullptr, 0, 0, m_start.size->GetWidth(), m_start.size->GetHeight(), SWP_NOMOVE);
    }
    frame.InitialUpdateFrame(nullptr, TRUE);
    frame.ShowFile(m_start.source, std::move(pPlot));
    PostThreadMessage(WM_SCREENSHOT, 0, 0);
}

void CViewerApp::WriteScreenshot() const {
    m_frames.front()->UpdateControls();
    m_frames.front()->SaveImage(m_start.strScreenshot.c_str());
}

void CViewerApp::OnScreenshot(WPARAM, LPARAM) {
    try {
        WriteScreenshot();
    } catch (...) {
        m_pFailure = std::current_exception();
    }
    m_pMainWnd->DestroyWindow();
}

void CViewerApp::Forget(const CViewerFrame& frame) {
    std::erase(m_frames, &frame);
    m_pSection = m_pSection == &frame ? nullptr : m_pSection;
    if (m_pMainWnd == &frame && !m_frames.empty()) {
        m_pMainWnd = m_frames.back();
    }
}

/// Keeps the frames in the order of their use.
BOOL CViewerApp::OnIdle(LONG nCount) {
    CWnd* const pFocus = CWnd::GetFocus();
    CViewerFrame* const pFrame = FrameOf(pFocus);
    if (pFrame) {
        pFrame->FollowFocus(pFocus);
        const auto it = std::find(m_frames.begin(), m_frames.end(), pFrame);
        std::rotate(it, it + (it != m_frames.end()), m_frames.end());
    }
    NoteSection(pFrame);
    return CWinApp::OnIdle(nCount);
}

/// A Cross Section window hides when it has asked, so who may ask is noted before.
void CViewerApp::NoteSection(CViewerFrame* pFrame) {
    if (pFrame && pFrame->IsSectionShown()) {
        m_pSection = pFrame;
    } else if (!m_pSection) {
        const auto it = std::find_if(m_frames.rbegin(), m_frames.rend(),
                                     [](const CViewerFrame* pShown) { return pShown->IsSectionShown(); });
        m_pSection = it == m_frames.rend() ? nullptr : *it;
    }
}

CViewerFrame* CViewerApp::FrameInUse() const {
    CViewerFrame* const pFrame = FrameOf(CWnd::GetFocus());
    return pFrame ? pFrame : m_frames.empty() ? nullptr : m_frames.back();
}

void CViewerApp::OpenSection(int nColumn, std::unique_ptr<CTable> pTable) {
    NoteSection(FrameOf(CWnd::GetFocus()));
    const CShownPlot* const pSource = m_pSection ? m_pSection->GetPlotView().GetPlot() : nullptr;
    std::unique_ptr<CShownPlot> pPlot;
    if (pSource && pTable) {
        pPlot = pSource->OpenSection(nColumn, std::move(pTable));
    }
    if (pPlot) {
        CViewerFrame& frame = NewFrame();
        ShowFrame(frame);
        frame.ShowSection(std::move(pPlot));
    } else if (pSource) {
        m_pSection->Say("No cross section: the curve has no point there");
    }
}

CDocument* CViewerApp::OpenDocumentFile(const char* lpszFileName) {
    if (CViewerFrame* const pFrame = FrameInUse()) {
        CViewSource source;
        source.strPath = lpszFileName;
        pFrame->OpenFile(source);
    }
    return nullptr;
}

void CViewerApp::AddToRecentFileList(const char* lpszPathName) {
    if (m_start.strScreenshot.empty()) {
        const auto path = std::filesystem::absolute(lpszPathName).lexically_normal();
        CWinApp::AddToRecentFileList(path.c_str());
    }
}

void CViewerApp::OnExit() {
    const std::vector<CViewerFrame*> frames = m_frames;
    for (CViewerFrame* const pFrame : frames) {
        pFrame->SendMessage(WM_CLOSE);
    }
}

void CViewerApp::OnAbout() {
    CViewerAboutDialog(FrameInUse(), m_start.strVersion).DoModal();
}

BEGIN_MESSAGE_MAP(CViewerApp, CWinApp)
ON_COMMAND(ID_APP_EXIT, OnExit)
ON_COMMAND(ID_APP_ABOUT, OnAbout)
ON_THREAD_MESSAGE(WM_SCREENSHOT, OnScreenshot)
END_MESSAGE_MAP()

} // namespace tessara
