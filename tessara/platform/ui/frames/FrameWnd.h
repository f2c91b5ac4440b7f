#pragma once

#include "tessara/platform/ui/frames/Commands.h"
#include "tessara/platform/ui/frames/DocTemplate.h"
#include "tessara/platform/ui/frames/Menu.h"
#include "tessara/platform/ui/windows/Wnd.h"

class CView;

namespace tessara {
struct CAcceleratorResource;
}

/// A frame's style: its title begins with that of the document.
constexpr DWORD FWS_ADDTOTITLE = 0x8000;

/// A top-level window with a menu, accelerators, a toolbar, a status bar and a view between them.
///
/// Its client area is what the bars leave. A command goes to the active view, the view's document, the frame
/// and the application, and ends where it is handled; a menu item or button whose command nobody handles is
/// grey. A frame is made with new and deletes itself with its window. Destroying the program's main window
/// ends the program. Main thread.
///
///     auto* pFrame = new CMainFrame;
///     pFrame->LoadFrame(IDR_MAINFRAME); // menu, accelerators and title of that number
///     m_pMainWnd = pFrame;
///     pFrame->ShowWindow(SW_SHOW);
class TESSARA_API CFrameWnd : public CWnd {
    DECLARE_DYNCREATE(CFrameWnd)

public:
    CFrameWnd() = default;
    ~CFrameWnd() override;

    // NOLINTNEXTLINE(readability-identifier-naming): the framework's name
    static const RECT rectDefault; ///< a size and a place that suit the screen

    /// Makes the window, hidden without WS_VISIBLE, with the menu of a resource when the number is not 0.
    /// Throws CResourceException.
    BOOL Create(const char* pszClassName, const char* pszText, DWORD dwStyle = WS_OVERLAPPEDWINDOW,
                const RECT& rect = rectDefault, CWnd* pParent = nullptr, UINT nMenuID = 0) override;
    /// Makes the hidden window with the resources of a number: the menu, without which CResourceException is
    /// thrown, and the accelerators, the title and the icon, where there are some. The context says which
    /// view it gets.
    virtual BOOL LoadFrame(UINT nIDResource, DWORD dwDefaultStyle = WS_OVERLAPPEDWINDOW | FWS_ADDTOTITLE,
                           CWnd* pParent = nullptr, CCreateContext* pContext = nullptr);
    /// Takes the accelerators of a resource. Throws CResourceException.
    BOOL LoadAccelTable(UINT nIDResource);
    CView* CreateView(CCreateContext* pContext, UINT nID = AFX_IDW_PANE_FIRST);

    virtual CDocument* GetActiveDocument();
    CView* GetActiveView() const { return m_pViewActive; }
    void SetActiveView(CView* pView, BOOL bNotify = TRUE);
    /// Tells the views that their document has its content, and shows the frame.
    void InitialUpdateFrame(CDocument* pDocument, BOOL bMakeVisible);
    virtual void ActivateFrame(int nCmdShow = -1);
    /// Places the view between the bars.
    virtual void RecalcLayout(BOOL bNotify = TRUE);
    /// Sets the window's title from those of the document and the frame; an asterisk marks unsaved changes.
    virtual void OnUpdateFrameTitle(BOOL bAddToTitle);

    CString GetTitle() const { return m_strTitle; }
    void SetTitle(const char* pszTitle) { m_strTitle = pszTitle; }
    /// Shows a text in the first pane of the status bar.
    void SetMessageText(const char* pszText);
    void SetMessageText(UINT nID);
    void ShowControlBar(CWnd* pBar, BOOL bShow, BOOL bDelay);
    /// Lets the view fill the screen, without menu, toolbar and status bar, or brings back these bars and the
    /// window as they were. Accelerators work all the while.
    void ShowFullScreen(BOOL bShow);
    BOOL IsFullScreen() const;
    /// Asks what the buttons and panes look like. Called when the program is idle.
    void UpdateControls();

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

    BOOL m_bAutoMenuEnable = TRUE; ///< greys items that nobody handles

protected:
    /// Makes what lies between the bars; the default makes the context's view.
    virtual BOOL OnCreateClient(LPCREATESTRUCT pCreate, CCreateContext* pContext);
    BOOL PreTranslateMessage(MSG* pMsg) override;
    void PostNcDestroy() override;

    int OnCreate(LPCREATESTRUCT pCreate);
    void OnClose();
    void OnSize(UINT nType, int nWidth, int nHeight);
    void OnSetFocus(CWnd* pPrevious);
    void OnBarCheck(UINT nID);
    void OnUpdateControlBarMenu(CCmdUI* pCmdUI);

    DECLARE_MESSAGE_MAP()

    CString m_strTitle;

private:
    void RunAccelerator(UINT nCommand);

    CView* m_pViewActive = nullptr;
    const tessara::CAcceleratorResource* m_pAccelerators = nullptr;
};
