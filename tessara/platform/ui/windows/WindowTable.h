#pragma once

#include <memory>
#include <vector>

#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

class CWnd;

namespace tessara {

class CPeer;

/// What is known of a window.
struct CWindowRecord {
    CWnd* pWnd = nullptr;             ///< its object; belongs to the owner's thread
    CPeer* pPeer = nullptr;           ///< its widget; belongs to the main thread
    std::shared_ptr<CMailbox> pOwner; ///< the thread that made it
    HWND hParent = nullptr;
    UINT nID = 0;
    DWORD dwStyle = 0;
};

// The table of windows. Records are copied under the shared lock, so any thread may ask.

/// A new handle for a record.
HWND AddWindow(const CWindowRecord& record);
/// The record of a handle, or nothing when the window has gone.
std::optional<CWindowRecord> FindWindow(HWND hWnd);
/// Changes a record through a function; false when the window has gone.
bool ChangeWindow(HWND hWnd, const std::function<void(CWindowRecord&)>& fnChange);
void RemoveWindow(HWND hWnd);
/// The children of a window, oldest first.
std::vector<HWND> ChildrenOf(HWND hWnd);
/// The windows without parent that a thread owns.
std::vector<HWND> WindowsOf(const CMailbox& owner);
/// How many windows there are.
std::size_t CountWindows();

/// An object made for a window that has none of its own; it lives until the window goes.
CWnd* KeepForWindow(HWND hWnd, std::unique_ptr<CWnd> pWnd);
/// Makes the kept object, or none, the window's again.
void GiveBackWindow(HWND hWnd);
/// Whether a window's object is the program's, and not one that was kept for it.
bool HasOwnObject(HWND hWnd);

} // namespace tessara
