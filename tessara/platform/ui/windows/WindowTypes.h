#pragma once

#include <cstdint>

#include "tessara/platform/base/Types.h"
#include "tessara/platform/gdi/Geometry.h"

// Handles and the words of messages. A handle names something and owns nothing; one that outlived what it
// named names nothing, and every operation on it does nothing.

using WPARAM = std::uintptr_t;
using LPARAM = std::intptr_t;
using LRESULT = std::intptr_t;

namespace tessara {
struct CWindowName;
struct CWaitableName;
struct CPointerShape;
} // namespace tessara

using HWND = tessara::CWindowName*;     ///< a window
using HANDLE = tessara::CWaitableName*; ///< an event or a thread
using HCURSOR = tessara::CPointerShape*;

/// A posted message. A message without a window is meant for the thread.
struct MSG {
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

constexpr WORD LOWORD(std::uintptr_t nValue) {
    return static_cast<WORD>(nValue);
}
constexpr WORD HIWORD(std::uintptr_t nValue) {
    return static_cast<WORD>(nValue >> 16);
}
constexpr LPARAM MAKELPARAM(int nLow, int nHigh) {
    return static_cast<LPARAM>(static_cast<DWORD>(static_cast<WORD>(nLow)) |
                               static_cast<DWORD>(static_cast<WORD>(nHigh)) << 16);
}
constexpr WPARAM MAKEWPARAM(UINT nLow, UINT nHigh) {
    return static_cast<WPARAM>(nLow & 0xFFFF) | static_cast<WPARAM>(nHigh & 0xFFFF) << 16;
}
