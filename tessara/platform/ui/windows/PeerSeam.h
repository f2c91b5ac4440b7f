#pragma once

#include <memory>

#include "tessara/platform/base/String.h"
#include "tessara/platform/gdi/DrawSink.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// What this room asks of the one that has the widgets.

namespace tessara {

class CPeer;

/// How a window is to be made. Pixels; a child's place is in its parent's client area.
struct CWindowDescription {
    HWND hWnd = nullptr;
    CString strClass; ///< the framework's name of a control's class; any other is a plain window
    CString strText;
    DWORD dwStyle = 0;
    DWORD dwExStyle = 0;
    RECT rect{0, 0, 0, 0};
    HWND hParent = nullptr;
    UINT nID = 0;
};

/// Whether there can be windows: see CGraphicsException. From any thread.
bool CanMakeWindows();

/// Makes the widget of a window, hidden when it has no parent, and notes it in the table. False when the
/// window or its parent's widget has gone. Main thread. Throws CMemoryException.
bool MakePeer(const CWindowDescription& description);
/// Takes the widget of a window away, if it has one: at once, or at the end of the event that it is in. Main
/// thread.
void DestroyPeer(HWND hWnd);

/// Answers a question that a peer has posted to a window of the calling thread (WM_PEER_QUESTION).
void AnswerQuestion(HWND hAsker, LPARAM nQuestion);
/// Has the questions answered that a window's peer has posted, and waits for that; false when there are none.
/// For what a program asks for itself, on any thread: what peers do waits for nobody.
bool SettleQuestions(HWND hWnd);
/// The same for the thread that owns the window, if that is another than the main thread; others go on.
void SettleOwnQuestions(HWND hWnd);

/// A sink on a window's backing image, for any thread. Draws nothing when the window has gone.
std::unique_ptr<CDrawSink> MakeWindowSink(HWND hWnd);

} // namespace tessara
