#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

constexpr int LB_ERR = -1;

/// A list of lines. With LBS_SORT, AddString places a line in alphabetical order: by its letters whatever
/// their case and then by its bytes, the same in every locale.
///
/// With LBS_OWNERDRAWFIXED the parent is asked for the height (WM_MEASUREITEM, once) and the look
/// (WM_DRAWITEM) of items, and where it does not handle these, MeasureItem and DrawItem. The surface is the
/// item alone, from (0, 0). Such a list without LBS_HASSTRINGS keeps no texts: what is added is the item's
/// data.
///
/// With LBS_EXTENDEDSEL the user selects several lines with Shift and Ctrl; with LBS_NOSEL none. The selected
/// lines stay marked when the list has not the keyboard.
///
/// Indices count from 0; what has no such item returns LB_ERR and changes nothing. With LBS_NOTIFY the parent
/// is told of the user's doing, never of the program's (LBN_SELCHANGE, LBN_DBLCLK, LBN_SETFOCUS,
/// LBN_KILLFOCUS).
///
/// The methods are in qt/controls/ListBox.cpp, the lines and the widget in qt/controls/ListBoxWidget.cpp.
class TESSARA_API CListBox : public CWnd {
    DECLARE_DYNCREATE(CListBox)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and ListBoxStyle. Without WS_VSCROLL it scrolls by the keyboard
    /// and the wheel alone.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    int AddString(const char* pszItem);                ///< returns the line's index; the text is copied
    int InsertString(int nIndex, const char* pszItem); ///< without sorting; -1 appends
    int DeleteString(UINT nIndex);                     ///< returns how many are left
    void ResetContent();                               ///< leaves no line
    int GetCount() const;

    /// The selected line, or LB_ERR. Of LBS_EXTENDEDSEL the line that has the keyboard, selected or not.
    int GetCurSel() const;
    /// Selects this line alone and scrolls to it; -1 selects nothing. Returns the line, or LB_ERR, also for
    /// -1. Not for LBS_EXTENDEDSEL: LB_ERR.
    int SetCurSel(int nSelect);
    /// Above 0 when the line is selected, 0 when it is not.
    int GetSel(int nIndex) const;
    /// Selects a line besides the others, or no longer, and brings a selected one into view; -1 means every
    /// line. Zero, or LB_ERR for a list without LBS_EXTENDEDSEL.
    int SetSel(int nIndex, BOOL bSelect = TRUE);
    /// How many lines are selected; LB_ERR for a list without LBS_EXTENDEDSEL.
    int GetSelCount() const;
    /// Writes the indices of the selected lines, ascending, at most so many. Returns how many; LB_ERR for a
    /// list without LBS_EXTENDEDSEL.
    int GetSelItems(int nMaxItems, int* pIndices) const;

    int GetText(int nIndex, CString& strText) const; ///< returns its length in bytes
    int GetTextLen(int nIndex) const;
    /// The next line after nIndexStart, round the end, that is the text, whatever the case of its letters.
    /// -1 starts at the first.
    int FindStringExact(int nIndexStart, const char* pszFind) const;
    /// What SetItemData set, 0 before; the list does not own what it points to.
    std::uintptr_t GetItemData(int nIndex) const;
    int SetItemData(int nIndex, std::uintptr_t dwItemData); ///< returns 0
    int GetItemHeight(int nIndex) const;                    ///< pixels, the same for all lines
    int GetTopIndex() const;                                ///< the first line in view; 0 for an empty list
    int SetTopIndex(int nIndex);                            ///< as far as there are lines below; returns 0

    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// A list box whose lines have check boxes. Clicks on a box and the space bar send CLBN_CHKCHANGE; the line
/// is selected before that. Lines are drawn here, also with LBS_OWNERDRAWFIXED.
class TESSARA_API CCheckListBox : public CListBox {
    DECLARE_DYNCREATE(CCheckListBox)

public:
    int GetCheck(int nIndex) const;        ///< 1 or 0; 0 where there is no such line
    void SetCheck(int nIndex, int nCheck); ///< 0 clears it, all else sets it; nobody is told

protected:
    void PreSubclassWindow() override;
};
