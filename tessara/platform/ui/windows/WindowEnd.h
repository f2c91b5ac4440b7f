#pragma once

#include "tessara/platform/ui/windows/WindowTypes.h"

class CWnd;

// How windows end; docs/framework.md has the rules.

namespace tessara {

class CMailbox;

/// Ends a window and all that goes with it, on its own thread, which is waited for. False when it has gone or
/// its end has begun already. Throws, when all is done, what the first handler threw.
bool DestroyTree(HWND hWnd);

/// The same for a window whose object is being deleted: no handler is given that object any more. Exceptions
/// go to the thread's ProcessWndProcException.
void DestroyWithObject(HWND hWnd, CWnd& wnd);

/// Takes a window away that could not be made, with WM_DESTROY and WM_NCDESTROY but without PostNcDestroy.
void DiscardWindow(HWND hWnd);

/// Ends the windows that the calling thread owns, whoever owns those. Meanwhile the thread makes no others.
void DestroyWindowsOfThread();

/// Has the main thread end, some time, what a thread that is no CWinThread has left behind.
void LeaveWindowsToMainThread(const CMailbox& ended);

} // namespace tessara
