#pragma once

#include "tessara/platform/ui/windows/Wnd.h"

/// A surface on a window's client area, in its pixels, on the ground that the window has. What is drawn stays
/// until the window is painted anew. Text has an opaque background, as on any CDC: before a plot is painted
/// on it, SetBkMode(TRANSPARENT). It starts with the window's font, so a text is as large as in the window's
/// controls; what the window's font becomes later does not change it.
/// It may belong to any thread: the main thread, which has the window's image, draws when it next waits or
/// serves its loop, and the caller waits for that; not so in WM_PAINT. Texts are measured by the caller.
class TESSARA_API CClientDC : public CDC {
    DECLARE_DYNAMIC(CClientDC)

public:
    explicit CClientDC(CWnd* pWnd);
    ~CClientDC() override;

private:
    CFont m_font; ///< the window's; what the first selection of another hands back
};

/// The same under the framework's name for the whole window: here the frame is the desktop's.
class TESSARA_API CWindowDC : public CClientDC {
    DECLARE_DYNAMIC(CWindowDC)

public:
    explicit CWindowDC(CWnd* pWnd) : CClientDC(pWnd) {}
};

/// The surface of a WM_PAINT handler.
class TESSARA_API CPaintDC : public CClientDC {
    DECLARE_DYNAMIC(CPaintDC)

public:
    explicit CPaintDC(CWnd* pWnd) : CClientDC(pWnd) {}
};
