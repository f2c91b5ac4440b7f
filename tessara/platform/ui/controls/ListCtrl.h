#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

enum ListViewColumnFormat : int { LVCFMT_LEFT = 0, LVCFMT_RIGHT = 1, LVCFMT_CENTER = 2 };
enum ListViewMask : UINT { LVIF_TEXT = 0x1, LVIF_STATE = 0x8 };
enum ListViewState : UINT { LVIS_FOCUSED = 0x1, LVIS_SELECTED = 0x2 };
enum ListViewSearch : int { LVNI_ALL = 0x0, LVNI_FOCUSED = 0x1, LVNI_SELECTED = 0x2 };

/// An item as LVN_GETDISPINFO asks for it: its handler copies the text to pszText, which holds cchTextMax
/// bytes, or points it to a text that stays.
struct LVITEM {
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    char* pszText;
    int cchTextMax;
};

struct NMLVDISPINFO {
    NMHDR hdr;
    LVITEM item;
};
using LV_DISPINFO = NMLVDISPINFO;

/// What LVN_COLUMNCLICK (iSubItem), LVN_ITEMCHANGED (iItem, states) and NM_DBLCLK (iItem, iSubItem) bring; -1
/// is none.
struct NMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
};
using NM_LISTVIEW = NMLISTVIEW;

/// A table of texts (report view). Widths are pixels. Rows are chosen as a whole, whatever
/// LVS_EX_FULLROWSELECT says.
///
/// With LVS_OWNERDATA the list keeps no items: SetItemCount says how many there are, and the parent is asked
/// for texts (LVN_GETDISPINFO) when they come into view.
///
/// LVN_ITEMCHANGED follows every change of a selection, also by SetItemState; texts change silently.
class TESSARA_API CListCtrl : public CWnd {
    DECLARE_DYNCREATE(CListCtrl)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    DWORD SetExtendedStyle(DWORD dwStyle); ///< LVS_EX_GRIDLINES; returns the previous one
    DWORD GetExtendedStyle() const;

    /// Returns the column's index. A width below zero is that of the heading.
    int InsertColumn(int nColumn, const char* pszHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nColumn);
    int GetColumnWidth(int nColumn) const;
    BOOL SetColumnWidth(int nColumn, int nWidth);

    int InsertItem(int nItem, const char* pszText); ///< returns the item's index; one too large appends
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    BOOL SetItemCount(int nItems);
    BOOL SetItemText(int nItem, int nSubItem, const char* pszText);
    CString GetItemText(int nItem, int nSubItem) const;
    std::uintptr_t GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, std::uintptr_t dwData);

    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    UINT GetItemState(int nItem, UINT nMask) const;
    /// The first item after nItem (-1: from the start) that is selected or focused, or -1.
    int GetNextItem(int nItem, int nFlags) const;
    BOOL EnsureVisible(int nItem, BOOL bPartialOK);
};
