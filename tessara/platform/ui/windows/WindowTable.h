#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "tessara/platform/ui/threads/Mailbox.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

class CWnd;
struct AFX_MSGMAP;

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
    std::uint64_t nEnd = 0;  ///< the end that the window belongs to, or 0
    bool bTakenAway = false; ///< its children go; nothing is made under it any more
    bool bPaints = false; ///< its object's message map has a handler for WM_PAINT
    bool bColors = false; ///< and for WM_CTLCOLOR
};

// The table of windows. Records are copied under the shared lock, so any thread may ask.

/// Makes an object a window's, with what its message map handles. The map is asked here, on the object's
/// thread: peers only read what was found.
void SetObject(CWindowRecord& record, CWnd* pWnd, const AFX_MSGMAP* pMap);
/// A new handle for a record; null when its parent has gone or is being taken away, when a child has none, or
/// when its thread makes no windows any more.
HWND AddWindow(const CWindowRecord& record);
/// The record of a handle, or nothing when the window has gone.
std::optional<CWindowRecord> FindWindow(HWND hWnd);
/// Changes a record through a function; false when the window has gone.
bool ChangeWindow(HWND hWnd, const std::function<void(CWindowRecord&)>& fnChange);
/// Gives back the object that was kept for the window.
std::unique_ptr<CWnd> RemoveWindow(HWND hWnd);
/// The children and owned windows of a window, oldest first.
std::vector<HWND> ChildrenOf(HWND hWnd);
/// Those of them that are not children.
std::vector<HWND> OwnedBy(HWND hWnd);
/// The windows that a thread owns and whose parents, if they have any, are not its own.
std::vector<HWND> WindowsOf(const CMailbox& owner);
/// The nearest window, from this one up, that is not a child; null when there is none.
HWND TopLevelOf(HWND hWnd);
/// How many windows there are.
std::size_t CountWindows();

// How windows end (see WindowEnd.h)

/// A number that no end has had.
std::uint64_t NewWindowEnd();
/// Makes a window part of an end. False when it has gone or belongs to one.
bool BeginWindowEnd(HWND hWnd, std::uint64_t nEnd);
/// Lets a window of that end take no more children. False when it has gone, belongs to another, or was asked.
bool BeginTakingAway(HWND hWnd, std::uint64_t nEnd);
/// Gives a window its widget. False when it has gone or is being taken away.
bool AttachPeer(HWND hWnd, CPeer* pPeer);
/// Gives all windows of a thread that has ended to another.
void GiveWindowsTo(const CMailbox& ended, const std::shared_ptr<CMailbox>& pHeir);

/// An object made for a window that has none of its own; it lives until the window goes.
CWnd* KeepForWindow(HWND hWnd, std::unique_ptr<CWnd> pWnd);
/// Makes the kept object, or none, the window's again.
void GiveBackWindow(HWND hWnd);
/// Whether a window's object is the program's, and not one that was kept for it.
bool HasOwnObject(HWND hWnd);

} // namespace tessara
