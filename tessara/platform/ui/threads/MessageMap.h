#pragma once

#include "tessara/platform/base/Api.h"
#include "tessara/platform/ui/threads/Messages.h"
#include "tessara/platform/ui/windows/WindowTypes.h"

// Message maps: a class says which member functions handle which messages. In the class
// DECLARE_MESSAGE_MAP(); in its source
//
//     BEGIN_MESSAGE_MAP(CPlotView, CView)
//         ON_WM_LBUTTONDOWN()
//         ON_COMMAND(ID_GETVALUE, OnGetValue)
//         ON_MESSAGE(WM_USER + 32, OnCrossSection)
//     END_MESSAGE_MAP()
//
// A handler has the parameters that its message carries; the compiler checks them.

class CCmdTarget;
class CCmdUI;
class CDC;
class CScrollBar;
class CWnd;

struct CREATESTRUCT;
struct DRAWITEMSTRUCT;
struct MEASUREITEMSTRUCT;

/// The head of every WM_NOTIFY.
struct NMHDR {
    HWND hwndFrom;
    UINT idFrom;
    UINT code;
};

/// A message on its way to a handler.
struct AFX_MESSAGE {
    WPARAM wParam;
    LPARAM lParam;
    void* pExtra;    ///< the CCmdUI of CN_UPDATE_COMMAND_UI
    LRESULT lResult; ///< what the sender gets
};

struct AFX_MSGMAP_ENTRY {
    UINT nMessage;
    UINT nCode; ///< notification code of a control
    UINT nID;   ///< first and last number of a command or control
    UINT nLastID;
    /// Unpacks the message, calls the member function and returns zero when the search is to go on.
    BOOL (*pfnInvoke)(CCmdTarget& target, AFX_MESSAGE& message);
};

struct AFX_MSGMAP {
    const AFX_MSGMAP* (*pfnGetBaseMap)(); ///< null at the root
    const AFX_MSGMAP_ENTRY* pEntries;     ///< ends with an entry without function
};

/// The code of a command itself, and of the question what its menu item looks like.
constexpr UINT CN_COMMAND = 0;
constexpr UINT CN_UPDATE_COMMAND_UI = 0xFFFFFFFF;
/// The message number under which handlers of messages posted to threads are kept.
constexpr UINT WM_THREAD_MESSAGE_ENTRY = 0xC000;

#define DECLARE_MESSAGE_MAP()                                                                                \
protected:                                                                                                   \
    static const AFX_MSGMAP* GetThisMessageMap();                                                            \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(class_name, base_name)                                                             \
    const AFX_MSGMAP* class_name::GetMessageMap() const {                                                    \
        return GetThisMessageMap();                                                                          \
    }                                                                                                        \
    const AFX_MSGMAP* class_name::GetThisMessageMap() {                                                      \
        using ThisClass [[maybe_unused]] = class_name;                                                       \
        using BaseClass = base_name;                                                                         \
        static const AFX_MSGMAP_ENTRY s_entries[] = {

#define END_MESSAGE_MAP()                                                                                    \
    { 0, 0, 0, 0, nullptr }                                                                                  \
    }                                                                                                        \
    ;                                                                                                        \
    static const AFX_MSGMAP s_map = {&BaseClass::GetThisMessageMap, s_entries};                              \
    return &s_map;                                                                                           \
    }

#define TESSARA_MAP_ENTRY(message, code, first, last, unpacker, handler)                                     \
    {message, static_cast<UINT>(code), static_cast<UINT>(first), static_cast<UINT>(last),                    \
     &tessara::unpack::unpacker<&ThisClass::handler>},
#define TESSARA_MAP_MESSAGE(message, unpacker, handler) TESSARA_MAP_ENTRY(message, 0, 0, 0, unpacker, handler)

// Commands and controls
#define ON_COMMAND(id, handler) TESSARA_MAP_ENTRY(WM_COMMAND, CN_COMMAND, id, id, Plain, handler)
#define ON_COMMAND_RANGE(first, last, handler)                                                               \
    TESSARA_MAP_ENTRY(WM_COMMAND, CN_COMMAND, first, last, CommandOfRange, handler)
#define ON_UPDATE_COMMAND_UI(id, handler)                                                                    \
    TESSARA_MAP_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, id, id, UpdateCommandUI, handler)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, handler)                                                     \
    TESSARA_MAP_ENTRY(WM_COMMAND, CN_UPDATE_COMMAND_UI, first, last, UpdateCommandUI, handler)
#define ON_CONTROL(code, id, handler) TESSARA_MAP_ENTRY(WM_COMMAND, code, id, id, Plain, handler)
#define ON_NOTIFY(code, id, handler) TESSARA_MAP_ENTRY(WM_NOTIFY, code, id, id, Notify, handler)
#define ON_BN_CLICKED(id, handler) ON_CONTROL(BN_CLICKED, id, handler)
#define ON_EN_CHANGE(id, handler) ON_CONTROL(EN_CHANGE, id, handler)
#define ON_EN_SETFOCUS(id, handler) ON_CONTROL(EN_SETFOCUS, id, handler)
#define ON_EN_KILLFOCUS(id, handler) ON_CONTROL(EN_KILLFOCUS, id, handler)
#define ON_LBN_SELCHANGE(id, handler) ON_CONTROL(LBN_SELCHANGE, id, handler)
#define ON_LBN_DBLCLK(id, handler) ON_CONTROL(LBN_DBLCLK, id, handler)
#define ON_LBN_SETFOCUS(id, handler) ON_CONTROL(LBN_SETFOCUS, id, handler)
#define ON_LBN_KILLFOCUS(id, handler) ON_CONTROL(LBN_KILLFOCUS, id, handler)
#define ON_CLBN_CHKCHANGE(id, handler) ON_CONTROL(CLBN_CHKCHANGE, id, handler)

// Messages of an application's own, and those posted to a thread
#define ON_MESSAGE(message, handler) TESSARA_MAP_MESSAGE(message, Words, handler)
#define ON_THREAD_MESSAGE(message, handler)                                                                  \
    TESSARA_MAP_ENTRY(WM_THREAD_MESSAGE_ENTRY, message, 0, 0, ThreadWords, handler)

// Messages of windows: the handler's name and parameters are given by the message
#define ON_WM_CREATE() TESSARA_MAP_MESSAGE(WM_CREATE, Create, OnCreate)         ///< int (CREATESTRUCT*)
#define ON_WM_DESTROY() TESSARA_MAP_MESSAGE(WM_DESTROY, Plain, OnDestroy)       ///< void ()
#define ON_WM_NCDESTROY() TESSARA_MAP_MESSAGE(WM_NCDESTROY, Plain, OnNcDestroy) ///< void ()
#define ON_WM_CLOSE() TESSARA_MAP_MESSAGE(WM_CLOSE, Plain, OnClose)             ///< void ()
#define ON_WM_PAINT() TESSARA_MAP_MESSAGE(WM_PAINT, Plain, OnPaint)             ///< void ()
#define ON_WM_SYSCOLORCHANGE() TESSARA_MAP_MESSAGE(WM_SYSCOLORCHANGE, Plain, OnSysColorChange) ///< void ()
#define ON_WM_ERASEBKGND() TESSARA_MAP_MESSAGE(WM_ERASEBKGND, Erase, OnEraseBkgnd) ///< BOOL (CDC*)
#define ON_WM_SIZE() TESSARA_MAP_MESSAGE(WM_SIZE, Size, OnSize)                    ///< void (UINT, int, int)
#define ON_WM_MOVE() TESSARA_MAP_MESSAGE(WM_MOVE, Move, OnMove)                    ///< void (int, int)
#define ON_WM_SHOWWINDOW() TESSARA_MAP_MESSAGE(WM_SHOWWINDOW, Show, OnShowWindow)  ///< void (BOOL, UINT)
#define ON_WM_ENABLE() TESSARA_MAP_MESSAGE(WM_ENABLE, Truth, OnEnable)             ///< void (BOOL)
#define ON_WM_ACTIVATE() TESSARA_MAP_MESSAGE(WM_ACTIVATE, Activate, OnActivate) ///< void (UINT, CWnd*, BOOL)
#define ON_WM_SETFOCUS() TESSARA_MAP_MESSAGE(WM_SETFOCUS, Focus, OnSetFocus)    ///< void (CWnd*)
#define ON_WM_KILLFOCUS() TESSARA_MAP_MESSAGE(WM_KILLFOCUS, Focus, OnKillFocus) ///< void (CWnd*)
#define ON_WM_SETCURSOR()                                                                                    \
    TESSARA_MAP_MESSAGE(WM_SETCURSOR, SetCursor, OnSetCursor) ///< BOOL (CWnd*, UINT, UINT)
#define ON_WM_CONTEXTMENU()                                                                                  \
    TESSARA_MAP_MESSAGE(WM_CONTEXTMENU, ContextMenu, OnContextMenu) ///< void (CWnd*, CPoint)
#define ON_WM_DRAWITEM()                                                                                     \
    TESSARA_MAP_MESSAGE(WM_DRAWITEM, DrawItem, OnDrawItem) ///< void (int, DRAWITEMSTRUCT*)
#define ON_WM_MEASUREITEM()                                                                                  \
    TESSARA_MAP_MESSAGE(WM_MEASUREITEM, MeasureItem, OnMeasureItem) ///< void (int, MEASUREITEMSTRUCT*)
#define ON_WM_CTLCOLOR()                                                                                     \
    TESSARA_MAP_MESSAGE(WM_CTLCOLOR, CtlColor, OnCtlColor)                 ///< HBRUSH (CDC*, CWnd*, UINT)
#define ON_WM_HSCROLL() TESSARA_MAP_MESSAGE(WM_HSCROLL, Scroll, OnHScroll) ///< void (UINT, UINT, CScrollBar*)
#define ON_WM_VSCROLL() TESSARA_MAP_MESSAGE(WM_VSCROLL, Scroll, OnVScroll) ///< void (UINT, UINT, CScrollBar*)
#define ON_WM_KEYDOWN() TESSARA_MAP_MESSAGE(WM_KEYDOWN, Key, OnKeyDown)    ///< void (UINT, UINT, UINT)
#define ON_WM_KEYUP() TESSARA_MAP_MESSAGE(WM_KEYUP, Key, OnKeyUp)          ///< void (UINT, UINT, UINT)
#define ON_WM_CHAR() TESSARA_MAP_MESSAGE(WM_CHAR, Key, OnChar)             ///< void (UINT, UINT, UINT)
#define ON_WM_MOUSEMOVE() TESSARA_MAP_MESSAGE(WM_MOUSEMOVE, Mouse, OnMouseMove)       ///< void (UINT, CPoint)
#define ON_WM_MOUSELEAVE() TESSARA_MAP_MESSAGE(WM_MOUSELEAVE, Plain, OnMouseLeave)    ///< void ()
#define ON_WM_LBUTTONDOWN() TESSARA_MAP_MESSAGE(WM_LBUTTONDOWN, Mouse, OnLButtonDown) ///< void (UINT, CPoint)
#define ON_WM_LBUTTONUP() TESSARA_MAP_MESSAGE(WM_LBUTTONUP, Mouse, OnLButtonUp)       ///< void (UINT, CPoint)
#define ON_WM_LBUTTONDBLCLK()                                                                                \
    TESSARA_MAP_MESSAGE(WM_LBUTTONDBLCLK, Mouse, OnLButtonDblClk)                     ///< void (UINT, CPoint)
#define ON_WM_RBUTTONDOWN() TESSARA_MAP_MESSAGE(WM_RBUTTONDOWN, Mouse, OnRButtonDown) ///< void (UINT, CPoint)
#define ON_WM_RBUTTONUP() TESSARA_MAP_MESSAGE(WM_RBUTTONUP, Mouse, OnRButtonUp)       ///< void (UINT, CPoint)
#define ON_WM_MOUSEWHEEL()                                                                                   \
    TESSARA_MAP_MESSAGE(WM_MOUSEWHEEL, Wheel, OnMouseWheel) ///< BOOL (UINT, short, CPoint)

namespace tessara::unpack {

/// The window that a handle names, or null; the object of a CObject word.
TESSARA_API CWnd* ToWindow(std::uintptr_t nHandle);
template <class POINTER>
POINTER ToPointer(LPARAM nWord) {
    return reinterpret_cast<POINTER>(nWord);
}
inline CPoint ToPoint(LPARAM nWord) {
    const auto nBits = static_cast<std::uintptr_t>(nWord);
    return {static_cast<std::int16_t>(LOWORD(nBits)), static_cast<std::int16_t>(HIWORD(nBits))};
}

template <class FUNCTION>
struct CMemberOf;
template <class RESULT, class OWNER, class... ARGUMENTS>
struct CMemberOf<RESULT (OWNER::*)(ARGUMENTS...)> {
    using Owner = OWNER;
};
template <class RESULT, class OWNER, class... ARGUMENTS>
struct CMemberOf<RESULT (OWNER::*)(ARGUMENTS...) const> {
    using Owner = OWNER;
};

template <auto HANDLER, class... ARGUMENTS>
auto Call(CCmdTarget& target, ARGUMENTS... arguments) {
    using Owner = typename CMemberOf<decltype(HANDLER)>::Owner;
    return (static_cast<Owner&>(target).*HANDLER)(arguments...);
}

} // namespace tessara::unpack

#include "tessara/platform/ui/threads/MessageUnpack.h"
