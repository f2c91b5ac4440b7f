#pragma once

#include "tessara/platform/ui/threads/MessageMap.h"

// One function per kind of message: takes its words apart and calls the handler. The words are those that
// platform/ui and platform/qt put in.

class CBrush;
/// What WM_CTLCOLOR answers: the brush of the control's ground, or null for the default.
using HBRUSH = const CBrush*;

namespace tessara::unpack {

template <auto HANDLER>
BOOL Plain(CCmdTarget& target, AFX_MESSAGE&) {
    Call<HANDLER>(target);
    return TRUE;
}

template <auto HANDLER>
BOOL CommandOfRange(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<UINT>(LOWORD(message.wParam)));
    return TRUE;
}

template <auto HANDLER>
BOOL UpdateCommandUI(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<CCmdUI*>(message.pExtra));
    return TRUE;
}

template <auto HANDLER>
BOOL Notify(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, ToPointer<NMHDR*>(message.lParam), &message.lResult);
    return TRUE;
}

template <auto HANDLER>
BOOL Words(CCmdTarget& target, AFX_MESSAGE& message) {
    message.lResult = static_cast<LRESULT>(Call<HANDLER>(target, message.wParam, message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL ThreadWords(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, message.wParam, message.lParam);
    return TRUE;
}

template <auto HANDLER>
BOOL Create(CCmdTarget& target, AFX_MESSAGE& message) {
    message.lResult = Call<HANDLER>(target, ToPointer<CREATESTRUCT*>(message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL Erase(CCmdTarget& target, AFX_MESSAGE& message) {
    message.lResult = Call<HANDLER>(target, ToPointer<CDC*>(static_cast<LPARAM>(message.wParam)));
    return TRUE;
}

template <auto HANDLER>
BOOL Size(CCmdTarget& target, AFX_MESSAGE& message) {
    const CPoint size = ToPoint(message.lParam);
    Call<HANDLER>(target, static_cast<UINT>(message.wParam), static_cast<int>(size.x),
                  static_cast<int>(size.y));
    return TRUE;
}

template <auto HANDLER>
BOOL Move(CCmdTarget& target, AFX_MESSAGE& message) {
    const CPoint origin = ToPoint(message.lParam);
    Call<HANDLER>(target, static_cast<int>(origin.x), static_cast<int>(origin.y));
    return TRUE;
}

template <auto HANDLER>
BOOL Show(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<BOOL>(message.wParam), static_cast<UINT>(message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL Truth(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<BOOL>(message.wParam));
    return TRUE;
}

template <auto HANDLER>
BOOL Activate(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<UINT>(LOWORD(message.wParam)),
                  ToWindow(static_cast<std::uintptr_t>(message.lParam)),
                  static_cast<BOOL>(HIWORD(message.wParam)));
    return TRUE;
}

template <auto HANDLER>
BOOL Focus(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, ToWindow(message.wParam));
    return TRUE;
}

template <auto HANDLER>
BOOL SetCursor(CCmdTarget& target, AFX_MESSAGE& message) {
    const auto nWord = static_cast<std::uintptr_t>(message.lParam);
    message.lResult = Call<HANDLER>(target, ToWindow(message.wParam), static_cast<UINT>(LOWORD(nWord)),
                                    static_cast<UINT>(HIWORD(nWord)));
    return message.lResult != 0;
}

template <auto HANDLER>
BOOL ContextMenu(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, ToWindow(message.wParam), ToPoint(message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL DrawItem(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<int>(message.wParam), ToPointer<DRAWITEMSTRUCT*>(message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL MeasureItem(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<int>(message.wParam), ToPointer<MEASUREITEMSTRUCT*>(message.lParam));
    return TRUE;
}

/// What WM_CTLCOLOR brings: the surface whose colours the handler sets, and the control.
struct CControlColorQuestion {
    CDC* pDC;
    CWnd* pControl;
    UINT nKind;
};

template <auto HANDLER>
BOOL CtlColor(CCmdTarget& target, AFX_MESSAGE& message) {
    const auto* pQuestion = ToPointer<const CControlColorQuestion*>(message.lParam);
    const HBRUSH hBrush = Call<HANDLER>(target, pQuestion->pDC, pQuestion->pControl, pQuestion->nKind);
    message.lResult = reinterpret_cast<LRESULT>(hBrush);
    return TRUE;
}

template <auto HANDLER>
BOOL Scroll(CCmdTarget& target, AFX_MESSAGE& message) {
    // The framework's handlers take the control for a scroll bar, whatever it is, and compare its address.
    auto* pControl = reinterpret_cast<CScrollBar*>(ToWindow(static_cast<std::uintptr_t>(message.lParam)));
    Call<HANDLER>(target, static_cast<UINT>(LOWORD(message.wParam)),
                  static_cast<UINT>(HIWORD(message.wParam)), pControl);
    return TRUE;
}

template <auto HANDLER>
BOOL Key(CCmdTarget& target, AFX_MESSAGE& message) {
    const auto nWord = static_cast<std::uintptr_t>(message.lParam);
    Call<HANDLER>(target, static_cast<UINT>(message.wParam), static_cast<UINT>(LOWORD(nWord)),
                  static_cast<UINT>(HIWORD(nWord)));
    return TRUE;
}

template <auto HANDLER>
BOOL Mouse(CCmdTarget& target, AFX_MESSAGE& message) {
    Call<HANDLER>(target, static_cast<UINT>(message.wParam), ToPoint(message.lParam));
    return TRUE;
}

template <auto HANDLER>
BOOL Wheel(CCmdTarget& target, AFX_MESSAGE& message) {
    const auto nDelta = static_cast<short>(HIWORD(message.wParam));
    message.lResult =
        Call<HANDLER>(target, static_cast<UINT>(LOWORD(message.wParam)), nDelta, ToPoint(message.lParam));
    return message.lResult != 0;
}

} // namespace tessara::unpack
