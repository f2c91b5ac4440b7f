#pragma once

#include <span>
#include <string>

#include "tessara/platform/base/Api.h"

// The desktop's clipboard. Main thread. Throws CGraphicsException where the desktop cannot be reached.

namespace tessara {

/// One form of what is copied: its MIME type and its bytes, for example "text/plain" (UTF-8), "image/png",
/// "image/svg+xml" or "image/x-wmf".
struct CClipboardItem {
    std::string strType;
    std::string strBytes;
};

/// Puts all forms of one thing on the clipboard, in place of what was there; a program that pastes takes the
/// one it understands. A PNG is offered as a picture too. Without items the clipboard is emptied.
TESSARA_API void SetClipboard(std::span<const CClipboardItem> items);

/// The bytes of that type on the clipboard, empty when there are none. Text is UTF-8; a picture that another
/// program copied in any form is there as "image/png".
TESSARA_API std::string GetClipboard(const char* pszType);

} // namespace tessara
