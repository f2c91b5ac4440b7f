#pragma once

#include <memory>

#include "tessara/platform/base/String.h"
#include "tessara/platform/gdi/DC.h"
#include "tessara/platform/ui/threads/CmdTarget.h"
#include "tessara/platform/ui/windows/Styles.h"

class CFrameWnd;
class CMenu;

/// What WM_CREATE brings.
struct CREATESTRUCT {
    void* lpCreateParams;
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    DWORD style;
    DWORD dwExStyle;
};
using LPCREATESTRUCT = CREATESTRUCT*;

/// Where a window is and how it is shown.
struct WINDOWPLACEMENT {
    UINT length;
    UINT flags;
    UINT showCmd; ///< a ShowCommand
    POINT ptMinPosition;
    POINT ptMaxPosition;
    RECT rcNormalPosition; ///< where it is when neither minimised nor maximised
};

/// Why an item is drawn, and how it looks.
enum OwnerDrawAction : UINT { ODA_DRAWENTIRE = 1, ODA_SELECT = 2, ODA_FOCUS = 4 };
enum OwnerDrawState : UINT { ODS_SELECTED = 0x1, ODS_GRAYED = 0x2, ODS_DISABLED = 0x4, ODS_FOCUS = 0x10 };

struct DRAWITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID; ///< the item, from 0
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    CDC* pDC; ///< where to draw, in pixels of the control
    RECT rcItem;
    std::uintptr_t itemData; ///< what SetItemData set; what was added when the list keeps no strings
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct MEASUREITEMSTRUCT {
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemWidth;
    UINT itemHeight; ///< pixels; filled by the handler
    std::uintptr_t itemData;
};
using LPMEASUREITEMSTRUCT = MEASUREITEMSTRUCT*;

/// A window: a thin object that holds a handle.
///
/// Positions and sizes are pixels of the screen; client coordinates count from the window's top left corner
/// inside its frame. Without a window (m_hWnd null, or a window that has gone) every operation does nothing
/// and returns zero. Deleting the object destroys the window, without its handlers, which have gone by then.
/// An object belongs to the thread that made its window.
///
///     class CPlotView : public CWnd {
///         void OnPaint() { CPaintDC dc(this); dc.SetBkMode(TRANSPARENT); ... }
///     };
///     CPlotView view;
///     view.Create(nullptr, "Plot", WS_OVERLAPPEDWINDOW | WS_VISIBLE, CRect(0, 0, 800, 575), nullptr, 0);
class TESSARA_API CWnd : public CCmdTarget {
    DECLARE_DYNCREATE(CWnd)

public:
    CWnd() = default;
    ~CWnd() override;

    HWND m_hWnd = nullptr;

    /// The object of a window, or null. What it returns for a control to which the program attached no object
    /// lives as long as the window.
    static CWnd* FromHandle(HWND hWnd);
    HWND GetSafeHwnd() const;

    // Life: ui/windows/Wnd.cpp, WindowEnd.cpp

    /// Makes a window without a control's look. A null class name is the plain window. Returns zero when
    /// there can be none, when WM_CREATE is answered with -1, or when a handler has destroyed it: there is no
    /// window then, and PostNcDestroy was called. When it throws there is none either, and the object stays
    /// with the caller.
    virtual BOOL Create(const char* pszClassName, const char* pszText, DWORD dwStyle, const RECT& rect,
                        CWnd* pParent, UINT nID);
    BOOL CreateEx(DWORD dwExStyle, const char* pszClassName, const char* pszText, DWORD dwStyle,
                  const RECT& rect, CWnd* pParent, UINT nID, void* pParam = nullptr);
    /// Destroys the window, its children and what it owns; docs/framework.md says in which order. Returns
    /// zero when there is none or its end has begun. On the thread that owns it: another waits for that.
    virtual BOOL DestroyWindow();
    /// Makes this object the one of an existing window, for example a dialog's control.
    BOOL SubclassWindow(HWND hWnd);
    BOOL SubclassDlgItem(UINT nID, CWnd* pParent);
    HWND UnsubclassWindow();

    // Relations: ui/windows/Wnd.cpp

    CWnd* GetParent() const;
    CWnd* GetOwner() const { return GetParent(); }
    CWnd* GetTopLevelParent() const;
    CFrameWnd* GetParentFrame() const;
    BOOL IsChild(const CWnd* pWnd) const;
    /// The control of that number among the children, or null.
    CWnd* GetDlgItem(int nID) const;
    int GetDlgCtrlID() const;
    DWORD GetStyle() const;
    /// Drops and adds styles, for those that a control looks at again.
    BOOL ModifyStyle(DWORD dwRemove, DWORD dwAdd, UINT nFlags = 0);

    // Text and font: qt/windows/Wnd.cpp; of controls by their number ui/windows/Wnd.cpp

    void SetWindowText(const char* pszText);
    /// Writes the text, zero-terminated, into a buffer of nMaxCount bytes and returns its length. What does
    /// not fit is cut, but not inside a UTF-8 character.
    int GetWindowText(char* pszText, int nMaxCount) const;
    void GetWindowText(CString& strText) const;
    int GetWindowTextLength() const;
    void SetDlgItemText(int nID, const char* pszText);
    int GetDlgItemText(int nID, CString& strText) const;
    /// The same by GetWindowText into a buffer.
    int GetDlgItemText(int nID, char* pszText, int nMaxCount) const;
    void SetDlgItemInt(int nID, UINT nValue, BOOL bSigned = TRUE);
    /// The font of the window's texts from now on; it is copied. Null is the desktop's.
    void SetFont(CFont* pFont, BOOL bRedraw = TRUE);
    /// The font with which surfaces on the window start, never null: see WindowFont in System.h. What it
    /// points to lives as long as this object and describes the font as it was at the last call.
    CFont* GetFont() const;

    // Place and look: qt/windows/Wnd.cpp

    BOOL ShowWindow(int nCmdShow); ///< returns nonzero when it was visible before
    BOOL IsWindowVisible() const;
    BOOL IsIconic() const;
    BOOL IsZoomed() const;
    /// Lets the user reach the window or not; a top-level window is not greyed. Returns nonzero when it was
    /// disabled before.
    BOOL EnableWindow(BOOL bEnable = TRUE);
    BOOL IsWindowEnabled() const;
    void MoveWindow(int nX, int nY, int nWidth, int nHeight, BOOL bRepaint = TRUE);
    void MoveWindow(const RECT& rect, BOOL bRepaint = TRUE);
    BOOL SetWindowPos(const CWnd* pInsertAfter, int nX, int nY, int nWidth, int nHeight, UINT nFlags);
    void CenterWindow(CWnd* pAlternateOwner = nullptr);
    void GetWindowRect(RECT* pRect) const; ///< on the screen, frame included
    void GetClientRect(RECT* pRect) const; ///< from (0, 0)
    void ClientToScreen(POINT* pPoint) const;
    void ClientToScreen(RECT* pRect) const;
    void ScreenToClient(POINT* pPoint) const;
    void ScreenToClient(RECT* pRect) const;
    BOOL GetWindowPlacement(WINDOWPLACEMENT* pPlacement) const;
    BOOL SetWindowPlacement(const WINDOWPLACEMENT* pPlacement);
    void BringWindowToTop();

    // Input: qt/windows/Wnd.cpp

    CWnd* SetFocus(); ///< returns the window that had the focus
    static CWnd* GetFocus();
    CWnd* SetCapture();
    static CWnd* GetCapture();
    BOOL SetForegroundWindow();
    void DragAcceptFiles(BOOL bAccept = TRUE);

    // Painting: qt/windows/Wnd.cpp, BackingImage.cpp

    void Invalidate(BOOL bErase = TRUE);
    void InvalidateRect(const RECT* pRect, BOOL bErase = TRUE);
    void UpdateWindow(); ///< paints now what is invalid
    void RedrawWindow();
    /// A surface on the client area, to be given back with ReleaseDC.
    CDC* GetDC();
    int ReleaseDC(CDC* pDC);

    // Menu and icon (top-level windows): qt/frames/Menu.cpp, FrameWidget.cpp

    CMenu* GetMenu() const;
    void DrawMenuBar();
    void SetIcon(UINT nIconID);

    /// Writes a picture of the window and what lies in it, as PNG. Throws CFileException, and
    /// CInvalidArgException where there is no window.
    void SaveImage(const char* pszPath) const;

    // Messages: ui/windows/Wnd.cpp, ui/threads/Dispatch.cpp

    LRESULT SendMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    BOOL PostMessage(UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);
    int MessageBox(const char* pszText, const char* pszCaption = nullptr, UINT nType = MB_OK);

    BOOL OnCmdMsg(UINT nID, UINT nCode, void* pExtra) override;

protected:
    /// Every message of the window passes here.
    virtual LRESULT WindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    virtual LRESULT DefWindowProc(UINT nMessage, WPARAM wParam, LPARAM lParam);
    /// What happens without a handler, for the message that is being handled.
    LRESULT Default();
    virtual BOOL OnCommand(WPARAM wParam, LPARAM lParam);
    virtual BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Asked when the parent did not handle a notification of this control itself.
    virtual BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult);
    /// Sees key messages before the window does; nonzero swallows them.
    virtual BOOL PreTranslateMessage(MSG* pMsg);
    virtual BOOL PreCreateWindow(CREATESTRUCT& cs);
    /// Called when the object has got its window, made or subclassed.
    virtual void PreSubclassWindow() {}
    /// Called last, after the window has gone.
    virtual void PostNcDestroy();

    // What handlers call in their base class. Each is the framework's default.
    int OnCreate(LPCREATESTRUCT) { return 0; }
    void OnDestroy() { Default(); }
    void OnNcDestroy() { Default(); }
    void OnClose() { Default(); }
    void OnPaint() { Default(); }
    void OnSysColorChange() { Default(); }
    BOOL OnEraseBkgnd(CDC*) { return static_cast<BOOL>(Default()); }
    void OnSize(UINT, int, int) { Default(); }
    void OnMove(int, int) { Default(); }
    void OnShowWindow(BOOL, UINT) { Default(); }
    void OnEnable(BOOL) { Default(); }
    void OnActivate(UINT, CWnd*, BOOL) { Default(); }
    void OnSetFocus(CWnd*) { Default(); }
    void OnKillFocus(CWnd*) { Default(); }
    BOOL OnSetCursor(CWnd*, UINT, UINT) { return static_cast<BOOL>(Default()); }
    void OnContextMenu(CWnd*, CPoint) { Default(); }
    void OnDrawItem(int, LPDRAWITEMSTRUCT) { Default(); }
    void OnMeasureItem(int, LPMEASUREITEMSTRUCT) { Default(); }
    HBRUSH OnCtlColor(CDC*, CWnd*, UINT) { return reinterpret_cast<HBRUSH>(Default()); }
    void OnHScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnVScroll(UINT, UINT, CScrollBar*) { Default(); }
    void OnKeyDown(UINT, UINT, UINT) { Default(); }
    void OnKeyUp(UINT, UINT, UINT) { Default(); }
    void OnChar(UINT, UINT, UINT) { Default(); }
    void OnMouseMove(UINT, CPoint) { Default(); }
    void OnMouseLeave() { Default(); }
    void OnLButtonDown(UINT, CPoint) { Default(); }
    void OnLButtonUp(UINT, CPoint) { Default(); }
    void OnLButtonDblClk(UINT, CPoint) { Default(); }
    void OnRButtonDown(UINT, CPoint) { Default(); }
    void OnRButtonUp(UINT, CPoint) { Default(); }
    BOOL OnMouseWheel(UINT, short, CPoint) { return static_cast<BOOL>(Default()); }

    /// The same as CreateEx under a window that another thread may be ending meanwhile.
    BOOL CreateUnder(HWND hParent, DWORD dwExStyle, const char* pszClassName, const char* pszText,
                     DWORD dwStyle, const RECT& rect, UINT nID, void* pParam = nullptr);

    DECLARE_MESSAGE_MAP()
    friend struct CWndAccess;

private:
    bool MakeWidget(const CREATESTRUCT& create, const char* pszClassName, const char* pszText, UINT nID);
    bool TellCreated(const CREATESTRUCT& create);

    mutable std::unique_ptr<CFont> m_pFont; ///< what GetFont has returned
};

TESSARA_API BOOL IsWindow(HWND hWnd);
TESSARA_API BOOL PostMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
TESSARA_API LRESULT SendMessage(HWND hWnd, UINT nMessage, WPARAM wParam, LPARAM lParam);
TESSARA_API BOOL ReleaseCapture();
