#pragma once

#include "tessara/platform/base/Types.h"

/// Numbers of window messages. Applications' own start at WM_USER.
enum WindowMessage : UINT {
    WM_NULL = 0x0000,
    WM_CREATE = 0x0001,
    WM_DESTROY = 0x0002,
    WM_MOVE = 0x0003,
    WM_SIZE = 0x0005,
    WM_ACTIVATE = 0x0006,
    WM_SETFOCUS = 0x0007,
    WM_KILLFOCUS = 0x0008,
    WM_ENABLE = 0x000A,
    WM_PAINT = 0x000F,
    WM_CLOSE = 0x0010,
    WM_QUIT = 0x0012,
    WM_ERASEBKGND = 0x0014,
    WM_SYSCOLORCHANGE = 0x0015,
    WM_SHOWWINDOW = 0x0018,
    WM_SETCURSOR = 0x0020,
    WM_DRAWITEM = 0x002B,
    WM_MEASUREITEM = 0x002C,
    WM_NOTIFY = 0x004E,
    WM_CONTEXTMENU = 0x007B,
    WM_NCDESTROY = 0x0082,
    WM_KEYDOWN = 0x0100,
    WM_KEYUP = 0x0101,
    WM_CHAR = 0x0102,
    WM_INITDIALOG = 0x0110,
    WM_COMMAND = 0x0111,
    WM_HSCROLL = 0x0114,
    WM_VSCROLL = 0x0115,
    WM_CTLCOLOR = 0x0019,
    WM_MOUSEMOVE = 0x0200,
    WM_LBUTTONDOWN = 0x0201,
    WM_LBUTTONUP = 0x0202,
    WM_LBUTTONDBLCLK = 0x0203,
    WM_RBUTTONDOWN = 0x0204,
    WM_RBUTTONUP = 0x0205,
    WM_MBUTTONDOWN = 0x0207,
    WM_MBUTTONUP = 0x0208,
    WM_MOUSEWHEEL = 0x020A, ///< the point is on the screen, unlike that of the others
    WM_MOUSELEAVE = 0x02A3,
    WM_USER = 0x0400
};

/// What WM_SIZE says of the window.
enum SizeType : UINT { SIZE_RESTORED = 0, SIZE_MINIMIZED = 1, SIZE_MAXIMIZED = 2 };

/// What WM_ACTIVATE says.
enum ActivateState : UINT { WA_INACTIVE = 0, WA_ACTIVE = 1, WA_CLICKACTIVE = 2 };

/// Keys and buttons held during a mouse message.
enum MouseKey : UINT {
    MK_LBUTTON = 0x01,
    MK_RBUTTON = 0x02,
    MK_SHIFT = 0x04,
    MK_CONTROL = 0x08,
    MK_MBUTTON = 0x10
};

constexpr int WHEEL_DELTA = 120; ///< one step of the wheel; smooth wheels tell smaller ones

/// Where the pointer is, for WM_SETCURSOR.
enum HitTest : UINT { HTERROR = 0xFFFE, HTNOWHERE = 0, HTCLIENT = 1, HTCAPTION = 2 };

/// Notification codes of WM_COMMAND, by control.
enum NotificationCode : UINT {
    BN_CLICKED = 0,
    BN_DOUBLECLICKED = 5,
    EN_SETFOCUS = 0x0100,
    EN_KILLFOCUS = 0x0200,
    EN_CHANGE = 0x0300,
    LBN_SELCHANGE = 1,
    LBN_DBLCLK = 2,
    LBN_SETFOCUS = 4,
    LBN_KILLFOCUS = 5,
    CLBN_CHKCHANGE = 40
};

/// Notification codes of WM_NOTIFY.
enum NotifyCode : UINT {
    NM_CLICK = 0U - 2,
    NM_DBLCLK = 0U - 3,
    NM_SETFOCUS = 0U - 7,
    NM_KILLFOCUS = 0U - 8,
    LVN_ITEMCHANGED = 0U - 101,
    LVN_COLUMNCLICK = 0U - 108,
    LVN_GETDISPINFO = 0U - 150,
    UDN_DELTAPOS = 0U - 722
};

/// What WM_HSCROLL and WM_VSCROLL say.
enum ScrollCode : UINT {
    SB_LINELEFT = 0,
    SB_LINERIGHT = 1,
    SB_PAGELEFT = 2,
    SB_PAGERIGHT = 3,
    SB_THUMBPOSITION = 4,
    SB_THUMBTRACK = 5,
    SB_LEFT = 6,
    SB_RIGHT = 7,
    SB_ENDSCROLL = 8
};

/// The kinds of control that WM_CTLCOLOR asks for.
enum ControlColor : UINT {
    CTLCOLOR_MSGBOX = 0,
    CTLCOLOR_EDIT = 1,
    CTLCOLOR_LISTBOX = 2,
    CTLCOLOR_BTN = 3,
    CTLCOLOR_DLG = 4,
    CTLCOLOR_SCROLLBAR = 5,
    CTLCOLOR_STATIC = 6
};

/// Numbers of keys in WM_KEYDOWN and accelerators; letters and digits are their capital ASCII codes.
enum VirtualKey : UINT {
    VK_BACK = 0x08,
    VK_TAB = 0x09,
    VK_RETURN = 0x0D,
    VK_SHIFT = 0x10,
    VK_CONTROL = 0x11,
    VK_MENU = 0x12,
    VK_ESCAPE = 0x1B,
    VK_SPACE = 0x20,
    VK_PRIOR = 0x21,
    VK_NEXT = 0x22,
    VK_END = 0x23,
    VK_HOME = 0x24,
    VK_LEFT = 0x25,
    VK_UP = 0x26,
    VK_RIGHT = 0x27,
    VK_DOWN = 0x28,
    VK_INSERT = 0x2D,
    VK_DELETE = 0x2E,
    VK_ADD = 0x6B,
    VK_SUBTRACT = 0x6D,
    VK_F1 = 0x70,
    VK_F2 = 0x71,
    VK_F3 = 0x72,
    VK_F4 = 0x73,
    VK_F5 = 0x74,
    VK_F6 = 0x75,
    VK_F7 = 0x76,
    VK_F8 = 0x77,
    VK_F9 = 0x78,
    VK_F10 = 0x79,
    VK_F11 = 0x7A,
    VK_F12 = 0x7B,
    VK_OEM_PLUS = 0xBB,
    VK_OEM_MINUS = 0xBD
};
