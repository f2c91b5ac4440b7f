#pragma once

#include <exception>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "cli/PictureSize.h"
#include "cli/view/ShownPlot.h"
#include "tessara/platform/ui/frames/WinApp.h"

namespace tessara {

class CViewerFrame;

/// What the viewer starts with.
struct CViewerStart {
    CViewSource source;
    std::string strVersion;           ///< shown in About
    std::string strScreenshot;        ///< a picture to write instead of waiting for the user; empty for none
    std::optional<CPictureSize> size; ///< of the first window, in pixels
    std::function<std::unique_ptr<CShownPlot>(const CViewSource&)> fnOpen = &OpenShownPlot;
};

/// The viewer: one window for the file and one for each cross section. It ends with its last window. Main
/// thread.
class CViewerApp : public CWinApp {
public:
    explicit CViewerApp(CViewerStart start);
    ~CViewerApp() override;

    const std::vector<CViewerFrame*>& GetFrames() const { return m_frames; }
    /// Throws what kept the program from starting or from writing its screenshot, once it has ended.
    void RethrowFailure() const;

    std::unique_ptr<CShownPlot> Open(const CViewSource& source) const { return m_start.fnOpen(source); }
    /// Opens a window on a section that a diagram's Cross Section window has asked for.
    void OpenSection(int nColumn, std::unique_ptr<CTable> pTable);
    /// A frame goes; when it was the main window, another becomes it.
    void Forget(const CViewerFrame& frame);

    BOOL InitInstance() override;
    BOOL OnIdle(LONG nCount) override;
    /// Opens a file in the window that was used last, as a list of recent files and a dropped file ask for.
    /// Always null: the viewer has no documents.
    CDocument* OpenDocumentFile(const char* lpszFileName) override;
    /// Screenshots leave no trace in the user's settings.
    void AddToRecentFileList(const char* lpszPathName) override;

protected:
    void OnExit();
    void OnAbout();
    void OnScreenshot(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    CViewerFrame& NewFrame();
    void ShowFrame(CViewerFrame& frame);
    void StartWithFile();
    void StartForScreenshot();
    void WriteScreenshot() const;
    CViewerFrame* FrameInUse() const;
    void NoteSection(CViewerFrame* pFrame);

    CViewerStart m_start;
    std::vector<CViewerFrame*> m_frames; ///< that used last at the end
    CViewerFrame* m_pSection = nullptr;  ///< whose Cross Section window was used last
    std::exception_ptr m_pFailure;
};

/// The program.
CViewerApp& TheViewer();

} // namespace tessara
