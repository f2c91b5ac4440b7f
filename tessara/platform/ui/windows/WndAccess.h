#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// Opens CWnd's protected operations to those who give it messages and end it.
struct CWndAccess {
    static LRESULT WindowProc(CWnd& wnd, const MSG& message) {
        return wnd.WindowProc(message.message, message.wParam, message.lParam);
    }
    static BOOL PreTranslate(CWnd& wnd, MSG& message) { return wnd.PreTranslateMessage(&message); }
    static void SayGone(CWnd& wnd) { wnd.PostNcDestroy(); }
};
