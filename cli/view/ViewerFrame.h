#pragma once

#include <memory>

#include "cli/view/ViewerBanner.h"
#include "cli/view/ViewerView.h"
#include "tessara/platform/ui/frames/FileWatch.h"
#include "tessara/platform/ui/frames/FrameWnd.h"
#include "tessara/platform/ui/frames/StatusBar.h"
#include "tessara/platform/ui/frames/ToolBar.h"

namespace tessara {

/// A window of the viewer: menu, toolbar, a banner for what went wrong, the plot, status bar.
///
/// It shows a file, which it follows when it changes, or a cross section. A file that cannot be read leaves
/// what was shown. The frame belongs to the viewer's application, which it tells of its end. Main thread.
class CViewerFrame : public CFrameWnd {
    DECLARE_DYNCREATE(CViewerFrame)

public:
    /// Posted when the shown file has changed.
    static constexpr UINT WM_FILE_CHANGED = WM_USER + 1;

    CViewerFrame() = default;

    CViewerView& GetPlotView() const { return *static_cast<CViewerView*>(GetDlgItem(AFX_IDW_PANE_FIRST)); }
    bool IsSectionShown() const;

    /// Shows a file, or says in the banner why not. The first file is kept even then, to be tried again.
    void OpenFile(const CViewSource& source);
    /// Shows what a file holds.
    void ShowFile(const CViewSource& source, std::unique_ptr<CShownPlot> pPlot);
    void ShowSection(std::unique_ptr<CShownPlot> pPlot);
    /// Says something in the banner; an empty text closes it.
    void Say(const CString& strText);
    const CViewSource& GetSource() const { return m_source; }

    /// A description of the point under the pointer for the status bar; empty where there is none.
    void TellPoint(const CString& strPoint);
    /// Remembers which read-out of this frame has the keyboard, if the window with the keyboard is in one.
    void FollowFocus(const CWnd* pFocus);

    void RecalcLayout(BOOL bNotify = TRUE) override;
    void OnUpdateFrameTitle(BOOL bAddToTitle) override;

protected:
    BOOL PreTranslateMessage(MSG* pMsg) override;

    int OnCreate(LPCREATESTRUCT pCreate);
    void OnClose();
    void OnDestroy();
    LRESULT OnFileChanged(WPARAM wParam, LPARAM lParam);
    LRESULT OnCrossSection(WPARAM wParam, LPARAM lParam);

    void OnFileOpen();
    void OnReload();
    void OnExport();
    void OnCloseWindow();
    void OnCopy();
    void OnCopyValues();
    void OnFullScreen();
    void OnNextWindow();
    void OnLeave();
    void OnKeys();
    void OnUpdateReload(CCmdUI* pCmdUI);
    void OnUpdatePlot(CCmdUI* pCmdUI);
    void OnUpdateFullScreen(CCmdUI* pCmdUI);
    void OnUpdateNextWindow(CCmdUI* pCmdUI);
    void OnUpdateZoomed(CCmdUI* pCmdUI);
    DECLARE_MESSAGE_MAP()

private:
    void Watch(const CViewSource& source);
    CString ProposedPicture() const;
    CWnd* GetReadOut() const;

    CToolBar m_toolBar;
    CStatusBar m_statusBar;
    CViewerBanner m_banner;
    CViewSource m_source; ///< without a path in a window that shows a cross section
    std::unique_ptr<CFileWatch> m_pWatch;
    HWND m_hReadOut = nullptr; ///< that had the keyboard last
};

} // namespace tessara
