#include <array>

#include "cli/view/ViewerResources.h"
#include "tessara/platform/base/Number.h"

namespace tessara {

namespace {

struct CKeyName {
    UINT nKey;
    const char* pszName;
};
constexpr CKeyName KEY_NAMES[] = {{VK_LEFT, "Left"},      {VK_RIGHT, "Right"},   {VK_UP, "Up"},
                                  {VK_DOWN, "Down"},      {VK_ESCAPE, "Escape"}, {VK_OEM_PLUS, "Plus"},
                                  {VK_OEM_MINUS, "Minus"}};

std::string NameOf(UINT nKey) {
    for (const CKeyName& name : KEY_NAMES) {
        if (name.nKey == nKey) {
            return name.pszName;
        }
    }
    if (nKey >= VK_F1 && nKey <= VK_F12) {
        return FormatText("F%u", nKey - VK_F1 + 1);
    }
    return {static_cast<char>(nKey)};
}

} // namespace

std::string KeyText(const CAccelerator& accelerator) {
    std::string strText;
    strText += accelerator.nKeys & FCONTROL ? "Ctrl+" : "";
    strText += accelerator.nKeys & FALT ? "Alt+" : "";
    strText += accelerator.nKeys & FSHIFT ? "Shift+" : "";
    return strText + NameOf(accelerator.nKey);
}

} // namespace tessara
