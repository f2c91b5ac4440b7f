#pragma once

#include "tessara/platform/ui/controls/Button.h"
#include "tessara/platform/ui/controls/ListBox.h"
#include "tessara/platform/ui/controls/Static.h"
#include "tessara/platform/ui/frames/View.h"

class CInterfaceItemArray;

/// The view of a Base Variant's structure: under a title, side by side, two lists of those items of the
/// document's input and output that are switched on. An item with a page of details ends in " >>"; a double
/// click replaces the lists by that page, which the derived view draws, and "<< Back" brings them back.
///
/// The document is a CBaseVariant; without one the lists are empty. They are filled anew whenever the view is
/// shown or has got another document. A program that wants Tab and Enter to lead through the view calls OnTab
/// and OnEnter.
///
///     class CMyView : public CBaseVariantViewBase {
///         DECLARE_DYNCREATE(CMyView)
///         void OnDrawInformation(CDC* pDC, CRect& rect, int nInformation) override { ... }
///     };
class TESSARA_API CBaseVariantViewBase : public CView {
    DECLARE_DYNCREATE(CBaseVariantViewBase)

public:
    CButton m_btnBack;
    CListBox m_listInput;  ///< the data of an item is the number of its page, or -1
    CListBox m_listOutput; ///< likewise
    CStatic m_staticInput;
    CStatic m_staticOutput;
    CStatic m_staticTitle;
    CSize m_sizeBack;        ///< of the button
    int m_nTextHeight = 0;   ///< of a line in the view's font, in pixels: the unit of the layout
    int m_nInformation = -1; ///< the page that is shown; -1: the lists
    CBrush m_brushInput;
    CBrush m_brushTitle;
    CBrush m_brushOutput;

    /// Goes to the other list, to the line beside the selected one. Nothing while a page is shown.
    void OnTab();
    /// Opens the page of the selected item; while one is shown, goes back to the lists.
    void OnEnter();
    /// Adds a line for an item; nInformation is its page, or -1.
    void AddInputItem(const char* lpszName, int nInformation);
    void AddOutputItem(const char* lpszName, int nInformation);
    /// Shows the lists or the page, as m_nInformation says.
    void SwitchVisibleState();

    void OnInitialUpdate() override;

protected:
    CBaseVariantViewBase() = default;

    /// Draws the page of details of that number, over the whole client area. The ground is drawn already,
    /// and texts are in the colour that goes with it.
    /// DEFAULT: draws nothing.
    virtual void OnDrawInformation(CDC* pDC, CRect& rect, int nInformation);

    void OnDraw(CDC* pDC) override;
    BOOL PreTranslateMessage(MSG* pMsg) override;

    int OnCreate(LPCREATESTRUCT pCreate);
    void OnSize(UINT nType, int cx, int cy);
    HBRUSH OnCtlColor(CDC* pDC, CWnd* pWnd, UINT nKind);
    void OnDestroy();
    void OnShowWindow(BOOL bShow, UINT nStatus);
    void OnKeyDown(UINT nKey, UINT nRepeat, UINT nFlags);
    void OnSetFocus(CWnd* pPrevious);
    void OnDblclkInput();
    void OnDblclkOutput();
    void OnSetfocusInput();
    void OnSetfocusOutput();
    void OnBack();
    DECLARE_MESSAGE_MAP()

private:
    void CreateControls();
    void FillLists();
    void OpenPage();
    CListBox& GetFocusedList();
    void DrawSeparators(CDC& dc, const CRect& client) const;

    bool m_bOutputLast = false; ///< which list had the keyboard last
};
