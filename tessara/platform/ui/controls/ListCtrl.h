#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

enum ListViewColumnFormat : int { LVCFMT_LEFT = 0, LVCFMT_RIGHT = 1, LVCFMT_CENTER = 2 };
enum ListViewMask : UINT { LVIF_TEXT = 0x1, LVIF_STATE = 0x8 };
/// The bits of LVIS_STATEIMAGEMASK are LVIS_UNCHECKED or LVIS_CHECKED where a row has a check box.
enum ListViewState : UINT {
    LVIS_FOCUSED = 0x1,
    LVIS_SELECTED = 0x2,
    LVIS_UNCHECKED = 0x1000,
    LVIS_CHECKED = 0x2000,
    LVIS_STATEIMAGEMASK = 0xF000
};
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

/// A table of texts (report view), several rows of which can be selected unless LVS_SINGLESEL. Widths are
/// pixels, indices count from 0. Without LVS_EX_FULLROWSELECT a row is chosen by its first cell and only that
/// is marked. A selection is seen while the table has the keyboard, and always with LVS_SHOWSELALWAYS.
///
/// With LVS_OWNERDATA the list keeps no items: SetItemCount says how many there are, and the parent is asked
/// for texts (LVN_GETDISPINFO) when they come into view. There is then nothing to insert, to check and to
/// keep data with.
///
/// LVN_ITEMCHANGED follows every change of a selection or a check, also by SetItemState and SetCheck; texts
/// change silently. Where a row or column does not exist, methods return zero and do nothing.
///
/// The methods and the widget are in qt/controls/ListCtrl.cpp, the rows in qt/controls/ListModel.cpp.
class TESSARA_API CListCtrl : public CWnd {
    DECLARE_DYNCREATE(CListCtrl)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and ListViewStyle.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    DWORD SetExtendedStyle(DWORD dwStyle); ///< bits of ListViewExtendedStyle; returns the previous ones
    DWORD GetExtendedStyle() const;

    /// Returns the column's index; one too large appends, one below zero is the first. A width below zero is
    /// that of the heading; nSubItem is not looked at: a column shows the texts of its own index.
    int InsertColumn(int nColumn, const char* pszHeading, int nFormat = LVCFMT_LEFT, int nWidth = -1,
                     int nSubItem = -1);
    BOOL DeleteColumn(int nColumn); ///< with its texts
    int GetColumnWidth(int nColumn) const;
    BOOL SetColumnWidth(int nColumn, int nWidth);

    /// Returns the item's index; one too large appends. -1 for one below zero and with LVS_OWNERDATA.
    int InsertItem(int nItem, const char* pszText);
    BOOL DeleteItem(int nItem);
    BOOL DeleteAllItems();
    int GetItemCount() const;
    BOOL SetItemCount(int nItems); ///< LVS_OWNERDATA alone; forgets the selection
    /// The text is copied; a cell that got none is empty.
    BOOL SetItemText(int nItem, int nSubItem, const char* pszText);
    /// Of LVS_OWNERDATA what the parent says, cut at 511 bytes unless it points to a text of its own.
    CString GetItemText(int nItem, int nSubItem) const;
    /// What SetItemData set, 0 before; the list does not own what it points to.
    std::uintptr_t GetItemData(int nItem) const;
    BOOL SetItemData(int nItem, std::uintptr_t dwData);

    /// Changes the states of the mask; a focus is moved to another item, never taken away. Selecting one with
    /// LVS_SINGLESEL deselects the others. An item of -1 does not exist: it does not mean all.
    BOOL SetItemState(int nItem, UINT nState, UINT nMask);
    UINT GetItemState(int nItem, UINT nMask) const;
    /// Whether the box of a row is checked (LVS_EX_CHECKBOXES); FALSE without boxes. A new row is not.
    BOOL GetCheck(int nItem) const;
    BOOL SetCheck(int nItem, BOOL bCheck = TRUE);
    /// The first item after nItem (-1: from the start) that is selected or focused, or -1.
    int GetNextItem(int nItem, int nFlags) const;
    BOOL EnsureVisible(int nItem, BOOL bPartialOK); ///< scrolls as little as it takes to see all of it
};
