#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// Text that the user types. Lines of ES_MULTILINE end with '\n'. Positions and limits count bytes of UTF-8;
/// a position inside a character is held at one of its ends.
///
/// With ES_NUMBER the user can add digits only; the program's own texts are free. EN_CHANGE follows every
/// change of a single line, also by SetWindowText, and those of several lines by the user.
///
/// The widgets and the methods are in qt/controls/Edit.cpp, the text itself (SetWindowText) in
/// qt/windows/WindowText.cpp.
class TESSARA_API CEdit : public CWnd {
    DECLARE_DYNCREATE(CEdit)

public:
    using CWnd::Create;
    /// As CStatic::Create, with WindowStyle and EditStyle. WS_VSCROLL and WS_HSCROLL let several lines have
    /// scroll bars where they need them.
    BOOL Create(DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID);

    /// What the user types and pastes stops at so many bytes, never inside a character; 0 or less is no
    /// limit. A longer text of the program stays, and the user can only shorten it. DEFAULT: none.
    void LimitText(int nBytes = 0);
    void SetLimitText(int nBytes) { LimitText(nBytes); }
    /// The user can still select and copy. Nonzero when there is a window.
    BOOL SetReadOnly(BOOL bReadOnly = TRUE);
    /// Selects from one position to another; (0, -1) is all, (-1, 0) nothing. Positions beyond the text are
    /// its end.
    void SetSel(int nStart, int nEnd, BOOL bNoScroll = FALSE);
    /// Both are where the caret is when nothing is selected, and 0 without a window.
    void GetSel(int& nStart, int& nEnd) const;
};
