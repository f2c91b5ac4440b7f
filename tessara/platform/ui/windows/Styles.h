#pragma once

#include <type_traits>

#include "tessara/platform/base/Types.h"

/// Styles of every window. WS_BORDER is a line round a child: an edit, a list, a table, a static or a plain
/// window has none without it; the other controls look as the desktop wants them.
enum WindowStyle : DWORD {
    WS_OVERLAPPED = 0x00000000,
    WS_POPUP = 0x80000000,
    WS_CHILD = 0x40000000,
    WS_MINIMIZE = 0x20000000, ///< shown minimised when it is made visible
    WS_VISIBLE = 0x10000000,
    WS_DISABLED = 0x08000000,
    WS_MAXIMIZE = 0x01000000, ///< shown maximised when it is made visible
    WS_CAPTION = 0x00C00000,
    WS_BORDER = 0x00800000,
    WS_DLGFRAME = 0x00400000,
    WS_VSCROLL = 0x00200000,
    WS_HSCROLL = 0x00100000,
    WS_SYSMENU = 0x00080000,
    WS_THICKFRAME = 0x00040000,
    WS_GROUP = 0x00020000,
    WS_TABSTOP = 0x00010000,
    WS_MINIMIZEBOX = 0x00020000,
    WS_MAXIMIZEBOX = 0x00010000,
    WS_OVERLAPPEDWINDOW = WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MINIMIZEBOX | WS_MAXIMIZEBOX
};

/// A sunken edge round a child, where WS_BORDER would have a line. The client area lies inside.
enum ExtendedWindowStyle : DWORD { WS_EX_CLIENTEDGE = 0x00000200 };

/// A dialog has the desktop's font: a template cannot choose one.
enum DialogStyle : DWORD {
    DS_MODALFRAME = 0x80, ///< a frame, also without a caption
    DS_CENTER = 0x0800
};

enum StaticStyle : DWORD {
    SS_LEFT = 0x0,
    SS_CENTER = 0x1,
    SS_RIGHT = 0x2,
    SS_ICON = 0x3,
    SS_LEFTNOWORDWRAP = 0xC,
    SS_BITMAP = 0xE,
    SS_NOPREFIX = 0x80,
    SS_SUNKEN = 0x1000
};

enum EditStyle : DWORD {
    ES_LEFT = 0x0,
    ES_CENTER = 0x1,
    ES_RIGHT = 0x2,
    ES_MULTILINE = 0x4,
    ES_AUTOVSCROLL = 0x40, ///< as every edit of several lines does
    ES_AUTOHSCROLL = 0x80, ///< as every edit of one line does; several lines do not wrap with it
    ES_READONLY = 0x800,
    ES_WANTRETURN = 0x1000,
    ES_NUMBER = 0x2000
};

/// The kind of a button is its low four bits.
enum ButtonStyle : DWORD {
    BS_PUSHBUTTON = 0x0,
    BS_DEFPUSHBUTTON = 0x1,
    BS_CHECKBOX = 0x2,
    BS_AUTOCHECKBOX = 0x3,
    BS_RADIOBUTTON = 0x4,
    BS_AUTO3STATE = 0x6,
    BS_GROUPBOX = 0x7,
    BS_AUTORADIOBUTTON = 0x9,
    BS_TYPEMASK = 0xF
};

enum ListBoxStyle : DWORD {
    LBS_NOTIFY = 0x0001,
    LBS_SORT = 0x0002,
    LBS_OWNERDRAWFIXED = 0x0010,
    LBS_HASSTRINGS = 0x0040,
    LBS_NOINTEGRALHEIGHT = 0x0100, ///< keeps the height that it is given, as every list does
    LBS_EXTENDEDSEL = 0x0800,      ///< several lines, with Shift and Ctrl
    LBS_DISABLENOSCROLL = 0x1000,
    LBS_NOSEL = 0x4000
};

enum ListViewStyle : DWORD {
    LVS_REPORT = 0x0001,
    LVS_SINGLESEL = 0x0004,
    LVS_SHOWSELALWAYS = 0x0008, ///< shows what is selected also without the keyboard
    LVS_OWNERDATA = 0x1000,
    LVS_NOCOLUMNHEADER = 0x4000,
    LVS_NOSORTHEADER = 0x8000
};
enum ListViewExtendedStyle : DWORD {
    LVS_EX_GRIDLINES = 0x1,
    LVS_EX_CHECKBOXES = 0x4,    ///< a box before each row of a table that holds its rows
    LVS_EX_FULLROWSELECT = 0x20 ///< rows are chosen as a whole, not by their first cell
};

enum SliderStyle : DWORD {
    TBS_AUTOTICKS = 0x1, ///< a tick for each step of SetTicFreq, not only at the ends
    TBS_VERT = 0x2,
    TBS_HORZ = 0x0,
    TBS_TOP = 0x4,
    TBS_BOTH = 0x8,
    TBS_NOTICKS = 0x10
};

enum ProgressStyle : DWORD {
    PBS_SMOOTH = 0x1, ///< without gaps, as every bar is
    PBS_VERTICAL = 0x4
};

enum SpinStyle : DWORD {
    UDS_WRAP = 0x1,
    UDS_SETBUDDYINT = 0x2,
    UDS_ALIGNRIGHT = 0x4,
    UDS_AUTOBUDDY = 0x10,
    UDS_ARROWKEYS = 0x20,
    UDS_NOTHOUSANDS = 0x80 ///< the buddy's text has no comma before each three digits
};

enum AnimateStyle : DWORD {
    ACS_CENTER = 0x1,      ///< in the middle of the control, not in its corner
    ACS_TRANSPARENT = 0x2, ///< shows what its parent has painted under it
    ACS_AUTOPLAY = 0x4     ///< runs once it is opened
};

namespace tessara {

template <class TYPE, class... STYLES>
constexpr bool IS_ONE_OF = (std::is_same_v<TYPE, STYLES> || ...);

/// The styles that make up one word of a window.
template <class TYPE>
concept CStyle = IS_ONE_OF<TYPE, WindowStyle, DialogStyle, StaticStyle, EditStyle, ButtonStyle, ListBoxStyle,
                           ListViewStyle, SliderStyle, ProgressStyle, SpinStyle, AnimateStyle>;

} // namespace tessara

/// Styles of a window and of its control together: WS_CHILD | ES_NUMBER.
template <tessara::CStyle FIRST, tessara::CStyle SECOND>
requires(!std::is_same_v<FIRST, SECOND>) constexpr DWORD operator|(FIRST eFirst, SECOND eSecond) {
    return static_cast<DWORD>(eFirst) | static_cast<DWORD>(eSecond);
}

/// How a window is shown.
enum ShowCommand : int {
    SW_HIDE = 0,
    SW_SHOWNORMAL = 1,
    SW_SHOWMINIMIZED = 2,
    SW_SHOWMAXIMIZED = 3,
    SW_SHOWNOACTIVATE = 4,
    SW_SHOW = 5,
    SW_MINIMIZE = 6,
    SW_RESTORE = 9
};

/// What SetWindowPos leaves alone.
enum WindowPosFlag : UINT {
    SWP_NOSIZE = 0x1,
    SWP_NOMOVE = 0x2,
    SWP_NOZORDER = 0x4,
    SWP_NOREDRAW = 0x8,
    SWP_NOACTIVATE = 0x10,
    SWP_SHOWWINDOW = 0x40,
    SWP_HIDEWINDOW = 0x80
};

/// Numbers of the controls that dialogs know.
enum DialogControl : UINT {
    IDOK = 1,
    IDCANCEL = 2,
    IDABORT = 3,
    IDRETRY = 4,
    IDIGNORE = 5,
    IDYES = 6,
    IDNO = 7,
    IDC_STATIC = 0xFFFF
};

enum MessageBoxStyle : UINT {
    MB_OK = 0x0,
    MB_OKCANCEL = 0x1,
    MB_ABORTRETRYIGNORE = 0x2,
    MB_YESNOCANCEL = 0x3,
    MB_YESNO = 0x4,
    MB_RETRYCANCEL = 0x5,
    MB_TYPEMASK = 0xF,
    MB_ICONSTOP = 0x10,
    MB_ICONQUESTION = 0x20,
    MB_ICONEXCLAMATION = 0x30,
    MB_ICONINFORMATION = 0x40,
    MB_ICONMASK = 0xF0,
    MB_DEFBUTTON2 = 0x100,
    MB_DEFBUTTON3 = 0x200,
    MB_DEFMASK = 0xF00
};

enum MenuFlag : UINT {
    MF_BYCOMMAND = 0x0,
    MF_ENABLED = 0x0,
    MF_UNCHECKED = 0x0,
    MF_STRING = 0x0,
    MF_GRAYED = 0x1,
    MF_DISABLED = 0x2,
    MF_CHECKED = 0x8,
    MF_POPUP = 0x10,
    MF_BYPOSITION = 0x400,
    MF_SEPARATOR = 0x800
};
