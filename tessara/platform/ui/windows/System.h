#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/gdi/GdiObject.h"
#include "tessara/platform/gdi/Geometry.h"

// What the desktop says of itself. From any thread: the main one, where the desktop is known, answers when it
// next waits or serves its loop.

/// Numbers of the desktop's colours.
enum SystemColor : int {
    COLOR_SCROLLBAR = 0,
    COLOR_BACKGROUND = 1,
    COLOR_ACTIVECAPTION = 2,
    COLOR_INACTIVECAPTION = 3,
    COLOR_MENU = 4,
    COLOR_WINDOW = 5,
    COLOR_WINDOWFRAME = 6,
    COLOR_MENUTEXT = 7,
    COLOR_WINDOWTEXT = 8,
    COLOR_CAPTIONTEXT = 9,
    COLOR_APPWORKSPACE = 12,
    COLOR_HIGHLIGHT = 13,
    COLOR_HIGHLIGHTTEXT = 14,
    COLOR_3DFACE = 15,
    COLOR_BTNFACE = 15,
    COLOR_3DSHADOW = 16,
    COLOR_BTNSHADOW = 16,
    COLOR_GRAYTEXT = 17,
    COLOR_BTNTEXT = 18,
    COLOR_3DHIGHLIGHT = 20,
    COLOR_BTNHIGHLIGHT = 20,
    COLOR_3DDKSHADOW = 21,
    COLOR_3DLIGHT = 22,
    COLOR_INFOTEXT = 23,
    COLOR_INFOBK = 24
};

/// A colour of the desktop, light or dark as its palette; black for a number that is none of these.
TESSARA_API COLORREF GetSysColor(int nIndex);

enum SystemMetric : int {
    SM_CXSCREEN = 0, ///< the main screen in pixels
    SM_CYSCREEN = 1,
    SM_CXVSCROLL = 2, ///< width of a scroll bar
    SM_CYHSCROLL = 3,
    SM_CXICON = 11,
    SM_CYICON = 12,
    SM_CXFULLSCREEN = 16, ///< what the desktop's bars leave of the main screen
    SM_CYFULLSCREEN = 17,
    SM_CXSMICON = 49,
    SM_CYSMICON = 50
};

/// A size in pixels; 0 for a number that is none of these.
TESSARA_API int GetSystemMetrics(int nIndex);

class CWnd;

namespace tessara {

/// Starts the window system, if it does not run yet. Throws CGraphicsException where there can be no windows;
/// without this call their Create returns zero there.
TESSARA_API void RequireWindows();

/// The font with which a surface on the window starts: the one that SetFont gave it, else that of its texts
/// at the device's size; the desktop's font when the window is null or has gone.
TESSARA_API LOGFONT WindowFont(const CWnd* pWnd);

/// How many pixels the desktop takes where it took one at its usual size: 2 on a screen of twice the density.
/// 1 when the window is null or has gone.
TESSARA_API double WindowScale(const CWnd* pWnd);

} // namespace tessara
