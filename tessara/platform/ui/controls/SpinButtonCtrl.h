#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// What UDN_DELTAPOS brings: the position before, and the change, which a handler may alter. A handler whose
/// result is not zero forbids the change.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};
using NM_UPDOWN = NMUPDOWN;

/// A pair of arrows beside an edit, its buddy (UDS_AUTOBUDDY: the control before it). With UDS_SETBUDDYINT it
/// reads and writes the buddy's text, in which a comma stands before each three digits unless
/// UDS_NOTHOUSANDS; both are read. With UDS_ARROWKEYS the buddy's up and down keys step too.
///
/// A step of the user is told to the parent as UDN_DELTAPOS before, and as WM_VSCROLL (SB_THUMBPOSITION)
/// after it; at an end of the range it stays there, or goes on at the other with UDS_WRAP.
///
/// The widget and the methods are in qt/controls/SpinButton.cpp.
class TESSARA_API CSpinButtonCtrl : public CWnd {
    DECLARE_DYNCREATE(CSpinButtonCtrl)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and SpinStyle.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// DEFAULT: 0 to 100. Where the upper end is below the lower one, the upper arrow counts down.
    void SetRange(int nLower, int nUpper);
    void GetRange(int& nLower, int& nUpper) const;
    /// Held in the range. The last one where the buddy shows no number.
    int GetPos() const;
    int SetPos(int nPos);         ///< held in the range; returns the previous one
    CWnd* SetBuddy(CWnd* pBuddy); ///< null for none; returns the previous one. The buddy is not owned
    CWnd* GetBuddy() const;       ///< null without one, or when it has gone
};
