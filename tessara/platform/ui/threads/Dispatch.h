#pragma once

#include <functional>

#include "tessara/platform/ui/windows/WindowTypes.h"

class CWinThread;
struct AFX_MESSAGE;

namespace tessara {

/// What became of a message.
struct CReply {
    bool bHandled = false; ///< a handler took it and did not ask for the default
    LRESULT lResult = 0;
};

/// Gives a message to a window of the calling thread. Exceptions come through.
CReply CallWindow(HWND hWnd, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);

/// Tells a window of any thread what happened to its widget: at once on its own thread, else posted and then
/// not handled. Exceptions go to the thread's ProcessWndProcException. Called by peers.
CReply Tell(HWND hWnd, UINT nMessage, WPARAM wParam = 0, LPARAM lParam = 0);

/// Posted to a window by the peer of a window (the first word) that has a question (its number). Beyond the
/// messages that programs have.
constexpr UINT WM_PEER_QUESTION = 0x10000;

/// Handles a message taken from the calling thread's mailbox.
void DispatchPosted(const MSG& message);

/// Handles a message that was posted to a thread and not to a window.
void DispatchThreadMessage(CWinThread& thread, UINT nMessage, AFX_MESSAGE& words);

/// Offers a key message to PreTranslateMessage of a window and those above it, then to the thread's. True
/// when one swallowed it.
bool PreTranslate(const MSG& message);

/// Runs a function; what it throws goes to the calling thread's ProcessWndProcException.
void RunGuarded(const std::function<void()>& fnRun);

/// The message that the calling thread is handling, or null.
const MSG* GetCurrentMessage();
/// Notes that nobody took that message: its default runs.
void MarkDefaulted();

} // namespace tessara
