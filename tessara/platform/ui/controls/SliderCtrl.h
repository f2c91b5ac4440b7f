#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A slider. What the user does arrives at the parent as WM_HSCROLL (WM_VSCROLL with TBS_VERT) with a
/// ScrollCode; the position is then set already. What the program does is not told.
///
/// The widget and the methods are in qt/controls/Slider.cpp.
class TESSARA_API CSliderCtrl : public CWnd {
    DECLARE_DYNCREATE(CSliderCtrl)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and SliderStyle.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// DEFAULT: 0 to 100. A largest value below the smallest is that. The position is held in the range.
    void SetRange(int nMin, int nMax, BOOL bRedraw = FALSE);
    void GetRange(int& nMin, int& nMax) const;
    int GetPos() const;
    void SetPos(int nPos);           ///< held in the range
    void SetTicFreq(int nFrequency); ///< positions from a tick to the next, with TBS_AUTOTICKS. DEFAULT: 1
    int SetLineSize(int nSize);      ///< one step of an arrow key; returns the previous one. DEFAULT: 1
    int SetPageSize(int nSize);      ///< of Page Up and Page Down. DEFAULT: 20
};
