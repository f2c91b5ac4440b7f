#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A text, a picture or a frame that takes no input. A text with '&' leads the keyboard to the next control
/// of its dialog, and names it for those who cannot see; a text breaks into lines unless SS_LEFTNOWORDWRAP.
/// With SS_ICON or SS_BITMAP the text is "#" and the number of a picture; one that does not exist is shown as
/// nothing.
class TESSARA_API CStatic : public CWnd {
    DECLARE_DYNCREATE(CStatic)

public:
    using CWnd::Create;
    BOOL Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID = IDC_STATIC);
};
