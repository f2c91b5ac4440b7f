#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// The pointer and its shapes. Positions are pixels of the screen. Main thread.

/// The system's pointer shapes.
enum SystemCursor : UINT {
    IDC_ARROW = 32512,
    IDC_IBEAM = 32513,
    IDC_WAIT = 32514,
    IDC_CROSS = 32515,
    IDC_UPARROW = 32516,
    IDC_SIZENWSE = 32642,
    IDC_SIZENESW = 32643,
    IDC_SIZEWE = 32644,
    IDC_SIZENS = 32645,
    IDC_SIZEALL = 32646,
    IDC_NO = 32648,
    IDC_HAND = 32649,
    IDC_APPSTARTING = 32650
};

/// A system shape or the cursor resource of that number (Resources.h); null when there is neither. The active
/// point of a resource is said by its SVG's attribute data-hotspot="x y", in the units of its width and
/// height; without it it is the top left corner. Shapes are kept as long as the program and never given back.
TESSARA_API HCURSOR LoadCursor(UINT nID);

/// Gives the pointer a shape over the window whose mouse message is being handled, until the next; null hides
/// it. Returns the shape set before.
TESSARA_API HCURSOR SetCursor(HCURSOR hCursor);

/// Keeps the pointer inside a rectangle, right and bottom excluded, until it is called with null, the program
/// loses the desktop's attention, or it ends. Mouse messages tell positions inside the rectangle. An empty
/// rectangle changes nothing and returns zero.
TESSARA_API BOOL ClipCursor(const RECT* pRect);

TESSARA_API BOOL GetCursorPos(POINT* pPoint);
TESSARA_API BOOL SetCursorPos(int nX, int nY);
