#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A bar that shows how far something has come.
class TESSARA_API CProgressCtrl : public CWnd {
    DECLARE_DYNCREATE(CProgressCtrl)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    void SetRange(int nLower, int nUpper); ///< DEFAULT: 0 to 100; an empty range shows an empty bar
    int GetPos() const;
    int SetPos(int nPos); ///< held in the range; returns the previous one
    int SetStep(int nStep);
    int StepIt(); ///< a step, beginning anew beyond the end; returns the previous position
};
