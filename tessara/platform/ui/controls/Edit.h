#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// Text that the user types. Lines of ES_MULTILINE end with '\n'. Positions and limits count bytes of UTF-8.
/// EN_CHANGE follows every change of a single line, also by SetWindowText, and those of several lines by the
/// user.
class TESSARA_API CEdit : public CWnd {
    DECLARE_DYNCREATE(CEdit)

public:
    using CWnd::Create;
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// What the user types and pastes stops at so many bytes; 0 is no limit. DEFAULT: none.
    void LimitText(int nBytes = 0);
    void SetLimitText(int nBytes) { LimitText(nBytes); }
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    /// Selects from one position to another; (0, -1) is all, (-1, 0) nothing.
    void SetSel(int nStart, int nEnd, BOOL bNoScroll = FALSE);
    void GetSel(int& nStart, int& nEnd) const;
};
