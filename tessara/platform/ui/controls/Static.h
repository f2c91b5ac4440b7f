#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A text, a picture or a frame that takes no input. A text with '&' leads the keyboard to the next control
/// of its dialog, and names it for those who cannot see; a text breaks into lines unless SS_LEFTNOWORDWRAP.
///
/// With SS_ICON or SS_BITMAP the text with which it is made is "#" and the number of a picture, and no text
/// is ever shown; a picture that does not exist is shown as nothing. The picture stays when the text changes.
///
/// The widget is in qt/controls/Static.cpp.
class TESSARA_API CStatic : public CWnd {
    DECLARE_DYNCREATE(CStatic)

public:
    using CWnd::Create;
    /// Makes it as a child, in pixels of the parent's client area; styles are WindowStyle and StaticStyle.
    /// Zero when there is no window then: no parent, no display, or the object has one already.
    BOOL Create(const char* pszText, DWORD dwStyle, const RECT& rect, CWnd* pParent, UINT nID = IDC_STATIC);
};
