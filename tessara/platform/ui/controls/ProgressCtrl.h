#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A bar that shows how far something has come. It takes no input and tells nobody anything.
///
/// The widget and the methods are in qt/controls/Progress.cpp.
class TESSARA_API CProgressCtrl : public CWnd {
    DECLARE_DYNCREATE(CProgressCtrl)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and ProgressStyle.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// DEFAULT: 0 to 100. An upper end below the lower one is that; an empty range shows an empty bar. The
    /// position is held in the new range.
    void SetRange(int nLower, int nUpper);
    int GetPos() const;
    int SetPos(int nPos);   ///< held in the range; returns the previous one
    int SetStep(int nStep); ///< how far StepIt goes; returns the previous one. DEFAULT: 10
    /// A step, beginning anew beyond the upper end; held at the lower one for a step below 0. Returns the
    /// previous position.
    int StepIt();
};
