#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// What UDN_DELTAPOS brings. A handler whose result is not zero forbids the change.
struct NMUPDOWN {
    NMHDR hdr;
    int iPos;
    int iDelta;
};
using NM_UPDOWN = NMUPDOWN;

/// A pair of arrows beside an edit, its buddy (UDS_AUTOBUDDY: the control before it). With UDS_SETBUDDYINT it
/// reads and writes the buddy's text.
class TESSARA_API CSpinButtonCtrl : public CWnd {
    DECLARE_DYNCREATE(CSpinButtonCtrl)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    void SetRange(int nLower, int nUpper); ///< DEFAULT: 0 to 100
    void GetRange(int& nLower, int& nUpper) const;
    int GetPos() const;
    int SetPos(int nPos); ///< returns the previous one
    CWnd* SetBuddy(CWnd* pBuddy);
    CWnd* GetBuddy() const;
};
