#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

constexpr int LB_ERR = -1;

/// A list of lines. With LBS_SORT, AddString places a line in alphabetical order, whatever the case of its
/// letters.
///
/// With LBS_OWNERDRAWFIXED the parent is asked for the height (WM_MEASUREITEM, once) and the look
/// (WM_DRAWITEM) of items, and where it does not handle these, MeasureItem and DrawItem. The surface is the
/// item alone, from (0, 0). Such a list without LBS_HASSTRINGS keeps no texts: what is added is the item's
/// data.
///
/// Indices count from 0; what has no such item returns LB_ERR. Only the user's doing is notified.
class TESSARA_API CListBox : public CWnd {
    DECLARE_DYNCREATE(CListBox)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    int AddString(const char* pszItem);
    int InsertString(int nIndex, const char* pszItem); ///< without sorting; -1 appends
    int DeleteString(UINT nIndex);                     ///< returns how many are left
    void ResetContent();
    int GetCount() const;

    int GetCurSel() const;
    int SetCurSel(int nSelect); ///< -1 selects nothing
    int GetText(int nIndex, CString& strText) const;
    int GetTextLen(int nIndex) const;
    /// The next line after nIndexStart, round the end, that is the text, whatever the case of its letters.
    int FindStringExact(int nIndexStart, const char* pszFind) const;
    std::uintptr_t GetItemData(int nIndex) const;
    int SetItemData(int nIndex, std::uintptr_t dwItemData);
    int GetItemHeight(int nIndex) const;
    int GetTopIndex() const;
    int SetTopIndex(int nIndex);

    virtual void DrawItem(LPDRAWITEMSTRUCT) {}
    virtual void MeasureItem(LPMEASUREITEMSTRUCT) {}

protected:
    BOOL OnChildNotify(UINT nMessage, WPARAM wParam, LPARAM lParam, LRESULT* pResult) override;
};

/// A list box whose lines have check boxes. Clicks on a box and the space bar send CLBN_CHKCHANGE.
class TESSARA_API CCheckListBox : public CListBox {
    DECLARE_DYNCREATE(CCheckListBox)

public:
    int GetCheck(int nIndex) const;
    void SetCheck(int nIndex, int nCheck);

protected:
    void PreSubclassWindow() override;
};
