#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A slider. What the user does arrives as WM_HSCROLL (WM_VSCROLL with TBS_VERT) with a ScrollCode; the
/// position is then set already.
class TESSARA_API CSliderCtrl : public CWnd {
    DECLARE_DYNCREATE(CSliderCtrl)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    void SetRange(int nMin, int nMax, BOOL bRedraw = FALSE); ///< DEFAULT: 0 to 100
    void GetRange(int& nMin, int& nMax) const;
    int GetPos() const;
    void SetPos(int nPos);
    void SetTicFreq(int nFrequency);
    int SetLineSize(int nSize); ///< one step of an arrow key; returns the previous one
    int SetPageSize(int nSize);
};
